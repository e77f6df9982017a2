#include <cimxml/SetupError.h>
#include <cli/CommandLine.h>
#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/Session.h>
#include <cli/Spelling.h>
#include <cli/Text.h>
#include <cli/commands/Commands.h>
#include <platform/settings/SettingsError.h>

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace cli {

namespace {

constexpr auto kCommands = {AddRun,      AddEnumerate,  AddNames,  AddInvoke, AddInfo,
                            AddRegister, AddUnregister, AddDoctor, AddServe,  AddPasswd};

void AddFileOption(CLI::App& app, const std::string& name, std::string& value,
                   const std::string& form, const std::string& description) {
    app.add_option(name, value, description)->type_name(form)->check([](const std::string& text) {
        return text.empty() ? "a name is missing" : "";
    });
}

void AddGlobalOptions(CLI::App& app, GlobalOptions& options) {
    AddFileOption(app, "--config", options.config, "FILE",
                  "Settings file (BMCI2C_CONFIG; else /etc/bmci2c/platform.toml)");
    AddFileOption(app, "--module", options.module, "FILE",
                  "Provider module (else the one installed beside this program)");
    AddFileOption(app, "--root", options.root, "DIR",
                  "Diagnostics root directory, which holds bmci2c/bmci2c.msg.xml (BMCI2C_ROOT)");
    AddFileOption(app, "--simulate", options.profile, "PROFILE",
                  "Profile of a simulated machine (BMCI2C_SIMULATE)");
}

// What is wrong where the line names no command that there is.
std::string NoCommandText(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; }))
        names.push_back(command->get_name());
    const std::vector<std::string> words = app.remaining();
    if (words.empty()) return "A command is missing: " + Listed(names);
    const std::string nearest = Nearest(words.front(), names);
    return "There is no command '" + words.front() + "'" +
           (nearest.empty() ? "" : ", but '" + nearest + "'") + ". The commands are " +
           Listed(names);
}

// What is wrong, and where to read what is right.
std::string UsageText(const CLI::App* app, const CLI::Error& error) {
    const std::vector<CLI::App*> commands = app->get_subcommands();
    const bool lacksCommand = commands.empty() && error.get_name() == "RequiredError";
    const std::string command = commands.empty() ? "" : " " + commands.front()->get_name();
    return "bmci2c: " + (lacksCommand ? NoCommandText(*app) : error.what()) + ". Call bmci2c" +
           command + " --help to see what it takes.\n";
}

int Report(const std::exception& error, int exitCode, const std::string& advice = "") {
    std::cerr << "bmci2c: " << error.what() << advice << '\n';
    return exitCode;
}

int CarryOut(const Command& command, const GlobalOptions& options) {
    try {
        const Session session = OpenSession(options);
        const std::string& problem = session.settings.problem;
        if (!problem.empty() && command.brokenSettings == Command::BrokenSettings::EndIt)
            throw platform::SettingsError(problem);
        const int exitCode = command.carryOut(session);
        std::cout.flush();
        if (std::cout) return exitCode;
        std::cerr
            << "bmci2c: The standard output cannot be written. Check that its disk is not full "
               "and its reader still there.\n";
        return kCallFailed;
    } catch (const platform::SettingsError& error) {
        return Report(error, kWrongUsage);
    } catch (const cimxml::SetupError& error) {
        return Report(error, kWrongUsage);
    } catch (const UsageError& error) {
        return Report(error, kWrongUsage);
    } catch (const host::LoadError& error) {
        return Report(error, kCallFailed, kLoadAdvice);
    } catch (const std::exception& error) {
        return Report(error, kCallFailed);
    }
}

}  // namespace

int Main(int argc, const char* const* argv) {
    CLI::App app("Tests the I2C busses of this server's management controllers.", "bmci2c");
    GlobalOptions options;
    Command chosen;
    AddGlobalOptions(app, options);
    app.set_version_flag("--version", "bmci2c " BMCI2C_VERSION);
    app.fallthrough();  // options of the program may stand behind the command, too
    app.require_subcommand(1);
    app.failure_message(UsageText);
    app.footer(
        "Exit codes of run: 0 passed, 1 a bus has failed, 2 not completed, 3 the module could not\n"
        "be loaded or the call failed, 64 wrong usage or settings. Of doctor: 0 all is well, 1\n"
        "something is wrong.");
    CommandSet commands(app, chosen);
    for (const auto add : kCommands) add(commands);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kSuccess : kWrongUsage;
    }
    return CarryOut(chosen, options);
}

}  // namespace cli
