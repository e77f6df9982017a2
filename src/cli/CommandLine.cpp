#include <cimxml/SetupError.h>
#include <cli/CommandLine.h>
#include <cli/ErrorJson.h>
#include <cli/ErrorOutput.h>
#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/HelpFormatter.h>
#include <cli/Session.h>
#include <cli/Terminal.h>
#include <cli/UsageProblem.h>
#include <cli/commands/Commands.h>
#include <cli/completion/Completion.h>
#include <platform/settings/SettingsError.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace cli {

namespace {

constexpr auto kCommands = {AddRun,   AddEnumerate, AddNames,      AddInvoke,
                            AddInfo,  AddRegister,  AddUnregister, AddDoctor,
                            AddServe, AddPasswd,    AddCatalog,    AddHelp};

void AddFileOption(CLI::App& app, const std::string& name, std::string& value,
                   const std::string& form, const std::string& description) {
    app.add_option(name, value, description)->type_name(form)->check([](const std::string& text) {
        return text.empty() ? "must not be empty" : "";
    });
}

void AddColourOption(CLI::App& app, Colour& colour) {
    static const std::map<std::string, Colour> kColours = {
        {"auto", Colour::Auto}, {"always", Colour::Always}, {"never", Colour::Never}};
    app.add_option_function<std::string>(
           "--color", [&colour](const std::string& word) { colour = kColours.at(word); },
           "Colours in the output; auto: on a terminal without NO_COLOR")
        ->type_name("auto|always|never")
        ->check([](const std::string& word) {
            return kColours.contains(word) ? ""
                                           : "must be auto, always or never, not '" + word + "'";
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
    AddColourOption(app, options.colour);
}

// Looked for before the line is parsed, so that a wrong line gets JSON, too.
bool AsksForJson(const std::vector<std::string>& words) {
    const auto end = std::find(words.begin(), words.end(), "--");
    return std::any_of(words.begin(), end, [](const std::string& word) {
        return word == "--json" || word.starts_with("--json=");
    });
}

int Report(const Problem& problem, int exitCode, bool asJson) {
    if (asJson) std::cout << JsonText(ErrorJson(problem)) << std::flush;
    PrintError(problem.Message());
    return exitCode;
}

// A full disk must not look like success.
int AfterOutput(int exitCode) {
    std::cout.flush();
    if (std::cout) return exitCode;
    PrintError(
        "The standard output cannot be written. Check that its disk is not full and its reader "
        "still there.");
    return kCallFailed;
}

int CarryOut(const Command& command, const GlobalOptions& options, bool asJson) {
    try {
        const Session session = OpenSession(options);
        const platform::Settings& settings = session.settings;
        if (!settings.problem.empty() && command.brokenSettings == Command::BrokenSettings::EndIt)
            return Report({settings.problem, settings.problemAdvice}, kWrongUsage, asJson);
        return AfterOutput(command.carryOut(session));
    } catch (const platform::SettingsError& error) {
        return Report({error.what(), error.Advice()}, kWrongUsage, asJson);
    } catch (const cimxml::SetupError& error) {
        return Report(SplitMessage(error.what()), kWrongUsage, asJson);
    } catch (const UsageError& error) {
        return Report(error.What(), kWrongUsage, asJson);
    } catch (const host::LoadError& error) {
        return Report(LoadProblem(error), kCallFailed, asJson);
    } catch (const CommandError& error) {
        return Report(error.What(), kCallFailed, asJson);
    } catch (const std::exception& error) {
        return Report({error.what(), ""}, kCallFailed, asJson);
    }
}

void Describe(CLI::App& app, GlobalOptions& options) {
    AddGlobalOptions(app, options);
    app.formatter(std::make_shared<HelpFormatter>(StandardOutput().width));
    app.set_version_flag("-V,--version", "bmci2c " BMCI2C_VERSION, "Print the version");
    app.set_help_flag("-h,--help", "Print help; after a command, help for that command");
    app.fallthrough();  // global options go before or after the command
    app.require_subcommand(1);
    app.footer(
        "Exit codes of run: 0 passed, 1 a bus has failed, 2 not completed, 3 the run itself "
        "failed, "
        "64 wrong usage or settings, 129, 130, 143 ended early by SIGHUP, SIGINT, SIGTERM. Of "
        "doctor: "
        "0 no check has failed, 1 a check has failed.");
}

int Print(const std::string& text) {
    std::cout << text;
    return AfterOutput(kSuccess);
}

int PrintCompletion(const CLI::App& app, const std::vector<std::string>& words) {
    const SchemaWords schema(FindFiles(Executable().parent_path(), ""));
    return Print(CompletionText(Complete(app, words, schema)));
}

}  // namespace

int Main(int argc, const char* const* argv) {
    const std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
    CLI::App app("Tests the I2C busses of this server's management controllers", "bmci2c");
    GlobalOptions options;
    Command chosen;
    Describe(app, options);
    CommandSet commands(app, chosen);
    for (const auto add : kCommands) add(commands);
    // Not shown by the help: the shells' completion asks for it.
    if (!words.empty() && words.front() == "complete")
        return PrintCompletion(app, {words.begin() + 1, words.end()});
    const bool asJson = AsksForJson(words);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return Print(app.help());
    } catch (const CLI::CallForVersion& version) {
        return Print(version.what() + std::string("\n"));
    } catch (const CLI::ParseError& error) {
        return Report(UsageProblem(app, error), kWrongUsage, asJson);
    }
    return CarryOut(chosen, options, asJson);
}

}  // namespace cli
