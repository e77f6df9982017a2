#include <cli/DiagnosticRun.h>
#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/commands/Commands.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>

namespace cli {

namespace {

int Names(const Session& session, const std::string& className) {
    const std::unique_ptr<host::Host> host = LoadHost(session);
    const host::NamesResult result = host->EnumerateInstanceNames(ClassPath(className));
    if (!result.status.IsOk())
        throw CallError("Enumerating the names of " + className, result.status);
    for (const host::ObjectPath& name : result.names) std::cout << name.ToString() << '\n';
    return kSuccess;
}

}  // namespace

void AddNames(CLI::App& app, Command& chosen) {
    CLI::App* const command =
        app.add_subcommand("names", "Print the object paths of all instances of a class");
    const auto className = std::make_shared<std::string>();
    command->add_option("CLASS", *className, "A CIM class")->required();
    command->callback([&chosen, className] {
        chosen = [className](const Session& session) { return Names(session, *className); };
    });
}

}  // namespace cli
