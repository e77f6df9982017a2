// The programs that a CIM server brings for its administrators: runs them and tells the user so, or
// only tells what would be run.
#pragma once

#include <cli/Errors.h>
#include <cli/registration/ExternalProgram.h>

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace cli {

// What keeps a registration from being made.
class RegistrationError : public CommandError {
public:
    using CommandError::CommandError;
};

// A server, and where its programs come from.
struct ServerPackage {
    std::string server;                 // "sfcb"
    std::string package;                // what to install
    std::vector<std::string> programs;  // on the PATH
};

class ServerTools {
public:
    // `dryRun`: nothing is run. Otherwise throws RegistrationError when one of the server's
    // programs is missing, or when this process is not root's: servers keep their files from
    // others.
    ServerTools(const ServerPackage& package, bool dryRun, std::ostream& out);

    // Runs a command that must succeed; throws RegistrationError with its output when it does not.
    void Run(const CommandWords& command);

    // Runs a command that may fail without harm.
    void Try(const CommandWords& command);

    // Runs a command that must succeed, and does the rest when `line` is among the lines that it
    // prints. A dry run does the rest in any case, and says of each command what it depends on.
    void WhenPrinted(const CommandWords& command, const std::string& line,
                     const std::function<void()>& rest);

private:
    void Announce(const CommandWords& command);

    bool dryRun;
    std::ostream& out;
    std::string condition;  // of a dry run's next commands; empty for none
};

}  // namespace cli
