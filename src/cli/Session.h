// The context of a command: the files of this installation and the settings in force.
#pragma once

#include <cli/ErrorOutput.h>
#include <cli/Installation.h>
#include <cli/Terminal.h>
#include <host/Host.h>
#include <platform/settings/Settings.h>

#include <functional>
#include <memory>
#include <string>

namespace cli {

// The options of the program; empty when not given.
struct GlobalOptions {
    std::string config;
    std::string module;
    std::string root;
    std::string profile;
    Colour colour = Colour::Auto;
};

struct Session {
    GlobalOptions options;
    std::filesystem::path executable;
    host::HostFiles files;
    platform::Variables variables;  // what the options and the command itself chose
    platform::Settings settings;

    // Chosen by the command, because the user had not.
    bool choseLog = false;
    bool choseLogLevel = false;

    // BMCI2C_SIMULATE came from the caller's environment.
    bool inheritedProfile = false;
};

// Reads the settings with the options. By default, only lines of severity 0 (errors of the catalog)
// are logged, to standard error. Settings that cannot be read are those of
// platform::ReadSettingsOrProblem().
Session OpenSession(const GlobalOptions& options);

// Loads the module, and sets the session's variables in the environment before, where the module
// finds them as in any other program. What its providers report as errors is printed. Throws
// host::LoadError.
std::unique_ptr<host::Host> LoadHost(const Session& session,
                                     std::function<void(const std::string&)> print = PrintError);

}  // namespace cli
