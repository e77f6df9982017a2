#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/Json.h>
#include <cli/Printable.h>
#include <cli/Text.h>
#include <cli/commands/Commands.h>
#include <cli/registration/CimServer.h>
#include <host/loading/RegistrationsFile.h>

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace cli {

namespace {

namespace fs = std::filesystem;

constexpr const char* kSfcb = "sfcb";
constexpr const char* kPegasus = "pegasus";

struct RegisterOptions {
    std::string server;
    PegasusOptions pegasus;
    bool dryRun = false;
    bool asJson = false;
};

std::unique_ptr<CimServer> Chosen(const RegisterOptions& options) {
    if (options.server == kSfcb && options.pegasus != PegasusOptions{})
        throw UsageError("--interop and --published-classes are for OpenPegasus only.",
                         "Leave them out for sfcb.");
    return options.server == kSfcb ? Sfcb() : Pegasus(options.pegasus);
}

std::string SchemaFile(const Session& session, const std::string& name) {
    const fs::path file = fs::path(session.files.schema).parent_path() / name;
    if (!fs::exists(file))
        throw RegistrationError(
            {"The file '" + file.string() + "' does not exist.", "Install the package again."});
    return file;
}

RegistrationFiles FilesFor(const Session& session, const CimServer& server) {
    return {
        SchemaFile(session, server.HasPublishedClasses() ? "bmci2c-published.mof" : "bmci2c.mof"),
        SchemaFile(session, server.RegistrationsName())};
}

std::string ClassesText(const RegistrationFiles& files, bool hasPublishedClasses) {
    return "Classes: " + files.mof +
           (hasPublishedClasses ? ", for a namespace that holds the published CIM classes."
                                : ", with the base classes, for a namespace that holds none.");
}

// Prints each step immediately for people; scripts get one JSON object at the end.
class StepPrinter {
public:
    explicit StepPrinter(const RegisterOptions& itsOptions) : options(itsOptions) {}

    void Say(const std::string& line) const {
        if (!options.asJson) std::cout << PrintableLine(line) << std::endl;
    }

    void Announce(const Step& step) {
        const std::string condition =
            step.condition.empty() ? "" : ", if that lists " + step.condition;
        Say((options.dryRun ? "Would run" + condition : "Running") + ": " + StepText(step));
        steps.push_back(step);
    }

    // `note` is what the user must still do.
    void Finish(const std::string& action, const RegistrationFiles& files,
                const std::string& note) const {
        if (!options.asJson) return;
        std::cout << JsonText(
            {{"format_version", kFormatVersion},
             {"action", action},
             {"server", options.server},
             {"dry_run", options.dryRun},
             {"files", {{"mof", files.mof}, {"registrations", files.registrations}}},
             {"steps", StepsJson()},
             {"note", note}});
    }

private:
    Json StepsJson() const {
        Json array = Json::array();
        for (const Step& step : steps)
            array.push_back(
                {{"command", step.command},
                 {"condition", step.condition.empty() ? Json() : Json(step.condition)}});
        return array;
    }

    const RegisterOptions& options;
    std::vector<Step> steps;
};

ServerTools ToolsFor(const CimServer& server, const RegisterOptions& options,
                     StepPrinter& progress) {
    return {server.Package(), options.dryRun,
            [&progress](const Step& step) { progress.Announce(step); }};
}

int Register(const Session& session, const RegisterOptions& options) {
    const auto server = Chosen(options);
    const RegistrationFiles files = FilesFor(session, *server);
    StepPrinter progress(options);
    ServerTools tools = ToolsFor(*server, options, progress);
    progress.Say(ClassesText(files, server->HasPublishedClasses()));
    server->Register(tools, files);
    const std::string note = server->AfterRegister(fs::path(session.files.module).parent_path());
    if (!options.dryRun) {
        const std::size_t count = host::ReadRegistrations(session.files.registrations).size();
        progress.Say("Registered " + Counted(count, "class", "classes") + " in root/QUVSD.");
        progress.Say(note);
    }
    progress.Finish("register", files, note);
    return kSuccess;
}

int Unregister(const Session& session, const RegisterOptions& options) {
    const auto server = Chosen(options);
    const RegistrationFiles files = FilesFor(session, *server);
    StepPrinter progress(options);
    ServerTools tools = ToolsFor(*server, options, progress);
    server->Unregister(tools, files);
    if (!options.dryRun) {
        progress.Say("The module is no longer registered with " + server->Package().server + ".");
        progress.Say(server->AfterUnregister());
    }
    progress.Finish("unregister", files, server->AfterUnregister());
    return kSuccess;
}

using Action = int (*)(const Session&, const RegisterOptions&);

CommandOptions AddServerCommand(CommandSet& commands, const std::string& name,
                                const std::string& description, Action action,
                                const std::shared_ptr<RegisterOptions>& options) {
    CommandOptions command = commands.Add(
        name, description,
        [options, action](const Session& session) { return action(session, *options); });
    command.Choice("SERVER", options->server, {kSfcb, kPegasus}, "sfcb or pegasus (OpenPegasus)")
        .Flag("--dry-run", options->dryRun, "Print the server's commands and run none")
        .Flag("--json", options->asJson, "Print one JSON object: files, steps and what is left");
    return command;
}

}  // namespace

void AddRegister(CommandSet& commands) {
    const auto options = std::make_shared<RegisterOptions>();
    AddServerCommand(commands, "register", "Register the module with a CIM server", Register,
                     options)
        .Text("--interop", "NAMESPACE", options->pegasus.interop,
              "OpenPegasus: the namespace of its registrations")
        .Flag("--published-classes", options->pegasus.hasPublishedClasses,
              "OpenPegasus: root/QUVSD holds the published CIM classes");
}

void AddUnregister(CommandSet& commands) {
    AddServerCommand(commands, "unregister", "Undo a registration", Unregister,
                     std::make_shared<RegisterOptions>());
}

}  // namespace cli
