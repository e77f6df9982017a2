#include <cli/ClassAdvice.h>
#include <cli/DiagnosticRun.h>
#include <cli/ErrorOutput.h>
#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/commands/Commands.h>

#include <iostream>
#include <memory>
#include <string>

namespace cli {

namespace {

int Names(const Session& session, const std::string& className) {
    const std::unique_ptr<host::Host> host = LoadHost(session);
    const host::NamesResult result = host->EnumerateInstanceNames(ClassPath(className));
    if (!result.status.IsOk())
        throw CallError("Enumerating the names of " + className, result.status,
                        ClassAdvice(className, result.status, RegisteredClasses(*host)));
    for (const host::ObjectPath& name : result.names) std::cout << name.ToString() << '\n';
    if (result.names.empty()) PrintError(NoInstanceText(className));
    return kSuccess;
}

}  // namespace

void AddNames(CommandSet& commands) {
    const auto className = std::make_shared<std::string>();
    commands
        .Add("names", "Print the object paths of all instances of a class",
             [className](const Session& session) { return Names(session, *className); })
        .Argument("CLASS", *className, "A CIM class");
}

}  // namespace cli
