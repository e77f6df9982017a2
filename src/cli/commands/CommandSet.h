// The options and arguments of the commands. Keeps CLI11 out of the commands, because its headers
// take ten times as long to compile as a command.
#pragma once

#include <cli/Session.h>

#include <chrono>
#include <concepts>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace CLI {
class App;
}

namespace cli {

struct Command {
    // Behaviour if the settings cannot be read: fail, or start and show why.
    enum class BrokenSettings { EndIt, AreShown };

    Command() = default;
    template <std::invocable<const Session&> Function>
    Command(Function function, BrokenSettings whenBroken = BrokenSettings::EndIt)
        : carryOut(std::move(function)), brokenSettings(whenBroken) {}

    std::function<int(const Session&)> carryOut;
    BrokenSettings brokenSettings = BrokenSettings::EndIt;
};

// The options and arguments of one command. Each value is stored when the line is parsed, so it
// must live until then; its initial content is the default. `form` represents the value in the
// help.
class CommandOptions {
public:
    explicit CommandOptions(CLI::App& app) : command(app) {}

    // A required or optional argument; with choices, one of them.
    CommandOptions& Argument(const std::string& name, std::string& value,
                             const std::string& description);
    // The same, with any number of further arguments.
    CommandOptions& Arguments(const std::string& name, std::vector<std::string>& values,
                              const std::string& description);
    CommandOptions& OptionalArgument(const std::string& name, std::string& value,
                                     const std::string& description);
    CommandOptions& Choice(const std::string& name, std::string& value,
                           std::vector<std::string> choices, const std::string& description);

    CommandOptions& Flag(const std::string& name, bool& value, const std::string& description);
    CommandOptions& Text(const std::string& name, const std::string& form, std::string& value,
                         const std::string& description);
    // May be repeated, with one value each time.
    CommandOptions& Texts(const std::string& name, const std::string& form,
                          std::vector<std::string>& values, const std::string& description);
    CommandOptions& Count(const std::string& name, int& value, int least,
                          const std::string& description);

    // From 1 on; shown among the limits.
    CommandOptions& Limit(const std::string& name, const std::string& form, std::size_t& value,
                          std::size_t most, const std::string& description);
    CommandOptions& Limit(const std::string& name, std::chrono::seconds& value,
                          std::chrono::seconds most, const std::string& description);

    // The last paragraph of the help.
    CommandOptions& Footer(const std::string& text);

private:
    CLI::App& command;
};

class CommandSet {
public:
    // `chosenCommand` becomes the command that the line names.
    CommandSet(CLI::App& program, Command& chosenCommand) : app(program), chosen(chosenCommand) {}

    CommandOptions Add(const std::string& name, const std::string& description,
                       const Command& command);

    // The help for a command; for the program when `command` is empty. Throws UsageError when there
    // is no such command.
    std::string HelpFor(const std::string& command) const;

private:
    CLI::App& app;
    Command& chosen;
};

}  // namespace cli
