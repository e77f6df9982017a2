// The commands of the program. Each function adds one to the command line; when the user calls it,
// `chosen` becomes what it does and returns its exit code.
#pragma once

#include <cli/Session.h>

#include <functional>

namespace CLI {
class App;
}

namespace cli {

using Command = std::function<int(const Session&)>;

void AddRun(CLI::App& app, Command& chosen);
void AddEnumerate(CLI::App& app, Command& chosen);
void AddNames(CLI::App& app, Command& chosen);
void AddInvoke(CLI::App& app, Command& chosen);
void AddInfo(CLI::App& app, Command& chosen);
void AddRegister(CLI::App& app, Command& chosen);
void AddUnregister(CLI::App& app, Command& chosen);

}  // namespace cli
