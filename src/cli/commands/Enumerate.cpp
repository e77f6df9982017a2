#include <cli/ClassAdvice.h>
#include <cli/DiagnosticRun.h>
#include <cli/ErrorOutput.h>
#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/Json.h>
#include <cli/PropertyChoice.h>
#include <cli/Text.h>
#include <cli/commands/Commands.h>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace cli {

namespace {

struct EnumerateOptions {
    std::string className;
    int runs = 0;
    int times = 1;
    std::vector<std::string> properties;
    bool asJson = false;
};

std::vector<host::Instance> EnumerateOnce(host::Host& host, const std::string& className) {
    host::InstancesResult result = host.EnumerateInstances(ClassPath(className));
    if (!result.status.IsOk())
        throw CallError("Enumerating " + className, result.status,
                        ClassAdvice(className, result.status, RegisteredClasses(host)));
    return std::move(result.instances);
}

void Print(const std::vector<host::Instance>& instances, bool asJson) {
    if (!asJson) {
        for (const host::Instance& instance : instances) std::cout << InstanceText(instance);
        return;
    }
    Json array = Json::array();
    for (const host::Instance& instance : instances) array.push_back(ToJson(instance));
    std::cout << JsonText(array);
}

int Enumerate(const Session& session, const EnumerateOptions& options) {
    const std::unique_ptr<host::Host> host = LoadHost(session);
    RequireProperties(host->Schema(), options.className, options.properties);
    for (int run = 0; run < options.runs; ++run) InvokeDiagnostic(*host);
    std::vector<host::Instance> instances;
    for (int time = 0; time < options.times; ++time)
        instances = EnumerateOnce(*host, options.className);
    for (host::Instance& instance : instances) KeepOnly(options.properties, instance);
    Print(instances, options.asJson);
    if (instances.empty() && options.runs == 0 && !options.asJson)
        PrintError(NoInstanceText(options.className));
    return kSuccess;
}

}  // namespace

void AddEnumerate(CommandSet& commands) {
    const auto options = std::make_shared<EnumerateOptions>();
    commands
        .Add("enumerate", "Print all instances of a class",
             [options](const Session& session) { return Enumerate(session, *options); })
        .Argument("CLASS", options->className, "A CIM class")
        .Count("--after-runs", options->runs, 0, "Run the test N times first, in this process")
        .Count("--times", options->times, 1, "Enumerate N times and print the last")
        .Texts("--property", "PROPERTY", options->properties,
               "Print this property only; give it again for the next one")
        .Flag("--json", options->asJson, "Print an array of JSON objects");
}

}  // namespace cli
