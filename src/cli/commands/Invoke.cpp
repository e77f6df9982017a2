#include <cli/DiagnosticRun.h>
#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/InvokeAdvice.h>
#include <cli/Json.h>
#include <cli/Text.h>
#include <cli/TypedArguments.h>
#include <cli/commands/Commands.h>

#include <CLI/CLI.hpp>
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

int Invoke(const Session& session, const InvokeOptions& options) {
    const std::unique_ptr<host::Host> host = LoadHost(session);
    host::ObjectPath target = ClassPath(options.className);
    target.keys = TypedKeys(host->Schema(), options.className, options.keys);
    const host::MethodResult result = host->InvokeMethod(
        target, options.method,
        TypedArguments(host->Schema(), options.className, options.method, options.arguments));
    if (options.asJson) {
        std::cout << JsonText({{"status", static_cast<int>(result.status.code)},
                               {"return_value", ToJson(result.returnValue)},
                               {"out", ToJson(result.out)}});
    } else if (result.status.IsOk()) {
        std::cout << "return value = " << ValueText(result.returnValue) << '\n'
                  << ValuesText(result.out);
    }
    if (!result.status.IsOk())
        throw CallError("Invoking " + options.className + "." + options.method, result.status,
                        InvokeAdvice(*host, target, result.status));
    return kSuccess;
}

// An option that may be repeated and takes one value each time.
void AddRepeated(CLI::App& command, const std::string& name, std::vector<std::string>& values,
                 const std::string& form, const std::string& description) {
    command.add_option(name, values, description)->type_name(form)->allow_extra_args(false);
}

}  // namespace

void AddInvoke(CLI::App& app, Command& chosen) {
    CLI::App* const command = app.add_subcommand("invoke", "Invoke a method of an instance");
    const auto options = std::make_shared<InvokeOptions>();
    command->add_option("CLASS", options->className, "A CIM class")->required();
    command->add_option("METHOD", options->method, "One of its methods")->required();
    AddRepeated(*command, "--key", options->keys, "K=V",
                "A key of the instance; give it again for the next one");
    AddRepeated(*command, "--in", options->arguments, "NAME=VALUE",
                "An argument; give it again for the next one, or the next element of an array");
    command->add_flag("--json", options->asJson, "Print the outcome as one JSON object");
    command->callback([&chosen, options] {
        chosen = [options](const Session& session) { return Invoke(session, *options); };
    });
}

}  // namespace cli
