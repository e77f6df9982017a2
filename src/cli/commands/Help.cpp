#include <cli/ExitCodes.h>
#include <cli/commands/Commands.h>

#include <iostream>
#include <memory>
#include <string>

namespace cli {

void AddHelp(CommandSet& commands) {
    const auto topic = std::make_shared<std::string>();
    commands
        .Add("help", "Print help, for a command or for the program",
             {[topic, &commands](const Session&) {
                  std::cout << commands.HelpFor(*topic);
                  return kSuccess;
              },
              Command::BrokenSettings::AreShown})
        .OptionalArgument("COMMAND", *topic, "A command");
}

}  // namespace cli
