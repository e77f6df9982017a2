#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/Text.h>
#include <cli/commands/Commands.h>
#include <cli/registration/CimServer.h>
#include <host/loading/RegistrationsFile.h>

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

namespace cli {

namespace {

namespace fs = std::filesystem;

constexpr const char* kSfcb = "sfcb";
constexpr const char* kPegasus = "pegasus";

struct RegisterOptions {
    std::string server;
    PegasusOptions pegasus;
    bool dryRun = false;
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

int Register(const Session& session, const RegisterOptions& options) {
    const auto server = Chosen(options);
    const RegistrationFiles files = FilesFor(session, *server);
    ServerTools tools(server->Package(), options.dryRun, std::cout);
    std::cout << "Classes: " << files.mof
              << (server->HasPublishedClasses()
                      ? ", for a namespace that holds the published CIM classes.\n"
                      : ", with the base classes, for a namespace that holds none.\n");
    server->Register(tools, files);
    if (options.dryRun) return kSuccess;
    const std::size_t count = host::ReadRegistrations(session.files.registrations).size();
    std::cout << "Registered " << Counted(count, "class", "classes") << " in root/QUVSD.\n"
              << server->AfterRegister(fs::path(session.files.module).parent_path()) << '\n';
    return kSuccess;
}

int Unregister(const Session& session, const RegisterOptions& options) {
    const auto server = Chosen(options);
    ServerTools tools(server->Package(), options.dryRun, std::cout);
    server->Unregister(tools, FilesFor(session, *server));
    if (options.dryRun) return kSuccess;
    std::cout << "The module is not registered with " << server->Package().server << " any more.\n"
              << server->AfterUnregister() << '\n';
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
        .Flag("--dry-run", options->dryRun, "Print the server's commands and run none");
    return command;
}

}  // namespace

void AddRegister(CommandSet& commands) {
    const auto options = std::make_shared<RegisterOptions>();
    AddServerCommand(commands, "register", "Register the module with a CIM server", Register,
                     options)
        .Text("--interop", "NAMESPACE", options->pegasus.interop,
              "Of OpenPegasus: the namespace of its registrations")
        .Flag("--published-classes", options->pegasus.hasPublishedClasses,
              "Of OpenPegasus: root/QUVSD holds the published CIM classes");
}

void AddUnregister(CommandSet& commands) {
    AddServerCommand(commands, "unregister", "Undo a registration", Unregister,
                     std::make_shared<RegisterOptions>());
}

}  // namespace cli
