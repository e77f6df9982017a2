// The programs that a CIM server brings for its administrators: runs them and announces each, or
// only announces what would be run.
#pragma once

#include <cli/Errors.h>
#include <cli/registration/ExternalProgram.h>

#include <functional>
#include <string>
#include <vector>

namespace cli {

// Why a registration failed.
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

// A command of the server's programs.
struct Step {
    CommandWords command;
    std::string condition;  // in a dry run, the line that an earlier command must print; or empty
};

// The step as a shell reads it.
std::string StepText(const Step& step);

class ServerTools {
public:
    // `announce` gets each step before it is run. `dryRun`: nothing is run. Otherwise throws
    // RegistrationError when one of the server's programs is missing, or when this process is not
    // root's: servers keep their files from others.
    ServerTools(const ServerPackage& package, bool dryRun,
                std::function<void(const Step&)> announce);

    // Runs a command that must succeed; throws RegistrationError with its output when it does not.
    void Run(const CommandWords& command);

    // Runs a command that may fail without harm.
    void Try(const CommandWords& command);

    // Runs a command that changes nothing and may fail; true when `line` is among the lines that it
    // prints. In a dry run, `expected`.
    bool Lists(const CommandWords& command, const std::string& line, bool expected);

    // Runs a command that must succeed, and does the rest when `line` is among the lines that it
    // prints. A dry run does the rest in any case, on that condition.
    void WhenPrinted(const CommandWords& command, const std::string& line,
                     const std::function<void()>& rest);

private:
    bool dryRun;
    std::function<void(const Step&)> announce;
    std::string condition;  // of the next steps
};

}  // namespace cli
