#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/Text.h>
#include <cli/commands/Commands.h>
#include <cli/registration/CimServer.h>
#include <host/loading/RegistrationsFile.h>

#include <CLI/CLI.hpp>
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
    return options.server == kSfcb ? Sfcb() : Pegasus(options.pegasus);
}

std::string SchemaFile(const Session& session, const std::string& name) {
    const fs::path file = fs::path(session.files.schema).parent_path() / name;
    if (!fs::exists(file))
        throw RegistrationError("The file '" + file.string() +
                                "' does not exist. Install the package again.");
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

std::shared_ptr<RegisterOptions> AddServerCommand(CLI::App& command, Command& chosen,
                                                  int (*action)(const Session&,
                                                                const RegisterOptions&)) {
    const auto options = std::make_shared<RegisterOptions>();
    command.add_option("SERVER", options->server, "sfcb or pegasus (OpenPegasus)")
        ->required()
        ->check([](const std::string& name) {
            return name == kSfcb || name == kPegasus ? "" : "it must be sfcb or pegasus";
        });
    command.add_flag("--dry-run", options->dryRun, "Print the server's commands and run none");
    command.callback([&chosen, options, action] {
        chosen = [options, action](const Session& session) { return action(session, *options); };
    });
    return options;
}

}  // namespace

void AddRegister(CLI::App& app, Command& chosen) {
    CLI::App* const command =
        app.add_subcommand("register", "Register the module with a CIM server");
    const auto options = AddServerCommand(*command, chosen, Register);
    command
        ->add_option("--interop", options->pegasus.interop,
                     "Of OpenPegasus: the namespace of its registrations (root/PG_InterOp)")
        ->type_name("NAMESPACE");
    command->add_flag("--published-classes", options->pegasus.hasPublishedClasses,
                      "Of OpenPegasus: root/QUVSD holds the published CIM classes");
}

void AddUnregister(CLI::App& app, Command& chosen) {
    AddServerCommand(*app.add_subcommand("unregister", "Undo a registration"), chosen, Unregister);
}

}  // namespace cli
