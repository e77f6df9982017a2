// What a command works with: the files of this installation and the settings in force.
#pragma once

#include <cli/Installation.h>
#include <cli/Terminal.h>
#include <host/Host.h>
#include <platform/settings/Settings.h>

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
    platform::Settings settings;

    // The command chose these itself, because nobody had.
    bool choseRoot = false;
    bool choseLog = false;
    bool choseLogLevel = false;

    // BMCI2C_SIMULATE came from whoever started the command.
    bool inheritedProfile = false;
};

// Hands the options to the module in the environment of this process, as any other program that
// loads it would, and reads the settings once to learn what is wrong with them. Where nobody says
// otherwise, the catalog is the one beside the program, and only lines of severity 0 (what is wrong
// in the catalog) are logged, to the standard error output. Settings that cannot be read are those
// of platform::ReadSettingsOrProblem().
Session OpenSession(const GlobalOptions& options);

// Loads the module. What its providers report as errors goes to the standard error output. Throws
// host::LoadError.
std::unique_ptr<host::Host> LoadHost(const Session& session);

}  // namespace cli
