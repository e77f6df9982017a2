#include <cli/ClassAdvice.h>
#include <cli/DiagnosticRun.h>
#include <cli/ErrorOutput.h>
#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/Json.h>
#include <cli/Printable.h>
#include <cli/commands/Commands.h>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace cli {

namespace {

Json NameJson(const host::ObjectPath& name) {
    return {{"class", name.className}, {"path", name.ToString()}, {"keys", ToJson(name.keys)}};
}

void Print(const std::vector<host::ObjectPath>& names, bool asJson) {
    if (!asJson) {
        for (const host::ObjectPath& name : names)
            std::cout << PrintableLine(name.ToString()) << '\n';
        return;
    }
    Json array = Json::array();
    for (const host::ObjectPath& name : names) array.push_back(NameJson(name));
    std::cout << JsonText(array);
}

int Names(const Session& session, const std::string& className, bool asJson) {
    const std::unique_ptr<host::Host> host = LoadHost(session);
    const host::NamesResult result = host->EnumerateInstanceNames(ClassPath(className));
    if (!result.status.IsOk())
        throw CallError("Enumerating the names of " + className, result.status,
                        ClassAdvice(className, result.status, RegisteredClasses(*host)));
    Print(result.names, asJson);
    if (result.names.empty() && !asJson) PrintError(NoInstanceText(className));
    return kSuccess;
}

}  // namespace

void AddNames(CommandSet& commands) {
    const auto className = std::make_shared<std::string>();
    const auto asJson = std::make_shared<bool>(false);
    commands
        .Add("names", "Print the object paths of all instances of a class",
             [className, asJson](const Session& session) {
                 return Names(session, *className, *asJson);
             })
        .Argument("CLASS", *className, "A CIM class")
        .Flag("--json", *asJson, "Print an array of JSON objects");
}

}  // namespace cli
