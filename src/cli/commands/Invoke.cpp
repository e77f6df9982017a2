#include <cli/DiagnosticRun.h>
#include <cli/ErrorJson.h>
#include <cli/ErrorOutput.h>
#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/InvokeAdvice.h>
#include <cli/Json.h>
#include <cli/Printable.h>
#include <cli/Text.h>
#include <cli/TypedArguments.h>
#include <cli/commands/Commands.h>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace cli {

namespace {

struct InvokeOptions {
    std::string className;
    std::string method;
    std::vector<std::string> keys;
    std::vector<std::string> arguments;
    bool asJson = false;
};

std::string SeveralText(const std::string& className, const std::vector<host::ObjectPath>& names) {
    std::string text = className + " has several instances:";
    for (const host::ObjectPath& name : names) text += "\n  " + name.ToString();
    return text;
}

// The instance with the keys; without them the only one, if the class has one.
host::ObjectPath TargetOf(host::Host& host, const InvokeOptions& options) {
    host::ObjectPath target = ClassPath(options.className);
    target.keys = TypedKeys(host.Schema(), options.className, options.keys);
    if (!options.keys.empty()) return target;
    const host::NamesResult known = host.EnumerateInstanceNames(target);
    if (!known.status.IsOk() || known.names.empty()) return target;  // the call says why
    if (known.names.size() > 1)
        throw UsageError(SeveralText(options.className, known.names),
                         "Name one with --key NAME=VALUE.");
    return known.names.front();
}

Json OutcomeJson(const host::MethodResult& result) {
    return {{"status", static_cast<int>(result.status.code)},
            {"return_value", ToJson(result.returnValue)},
            {"out", ToJson(result.out)}};
}

std::string OutcomeText(const host::MethodResult& result) {
    return "return value = " + Printable(ValueText(result.returnValue)) + "\n" +
           ValuesText(result.out);
}

int Invoke(const Session& session, const InvokeOptions& options) {
    const std::unique_ptr<host::Host> host = LoadHost(session);
    const host::ObjectPath target = TargetOf(*host, options);
    const host::MethodResult result = host->InvokeMethod(
        target, options.method,
        TypedArguments(host->Schema(), options.className, options.method, options.arguments));
    if (result.status.IsOk()) {
        std::cout << (options.asJson ? JsonText(OutcomeJson(result)) : OutcomeText(result));
        return kSuccess;
    }
    const CallError error("Invoking " + options.className + "." + options.method, result.status,
                          InvokeAdvice(*host, target, result.status));
    if (!options.asJson) throw error;
    Json object = ErrorJson(error.What());  // with the outcome, one JSON object
    object.update(OutcomeJson(result));
    std::cout << JsonText(object);
    PrintError(error.what());
    return kCallFailed;
}

}  // namespace

void AddInvoke(CommandSet& commands) {
    const auto options = std::make_shared<InvokeOptions>();
    commands
        .Add("invoke", "Invoke a method of an instance",
             [options](const Session& session) { return Invoke(session, *options); })
        .Argument("CLASS", options->className, "A CIM class")
        .Argument("METHOD", options->method, "One of its methods")
        .Texts(
            "--key", "K=V", options->keys,
            "A key of the instance; give it again for the next one. Not needed if the class has a "
            "single instance")
        .Texts("--in", "NAME=VALUE", options->arguments,
               "An argument; give it again for the next one, or the next element of an array")
        .Flag("--json", options->asJson, "Print the outcome as one JSON object");
}

}  // namespace cli
