// The commands of the program. Each function adds one to the command line; when the user calls it,
// `chosen` becomes what it does and returns its exit code.
#pragma once

#include <cli/Session.h>

#include <concepts>
#include <functional>
#include <utility>

namespace CLI {
class App;
}

namespace cli {

struct Command {
    // What it does while the settings cannot be read: not start, or start and show why.
    enum class BrokenSettings { EndIt, AreShown };

    Command() = default;
    template <std::invocable<const Session&> Function>
    Command(Function function, BrokenSettings whenBroken = BrokenSettings::EndIt)
        : carryOut(std::move(function)), brokenSettings(whenBroken) {}

    std::function<int(const Session&)> carryOut;
    BrokenSettings brokenSettings = BrokenSettings::EndIt;
};

void AddRun(CLI::App& app, Command& chosen);
void AddEnumerate(CLI::App& app, Command& chosen);
void AddNames(CLI::App& app, Command& chosen);
void AddInvoke(CLI::App& app, Command& chosen);
void AddInfo(CLI::App& app, Command& chosen);
void AddRegister(CLI::App& app, Command& chosen);
void AddUnregister(CLI::App& app, Command& chosen);
void AddDoctor(CLI::App& app, Command& chosen);
void AddServe(CLI::App& app, Command& chosen);
void AddPasswd(CLI::App& app, Command& chosen);

}  // namespace cli
