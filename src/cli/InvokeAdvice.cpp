#include <cli/ClassAdvice.h>
#include <cli/DiagnosticRun.h>
#include <cli/InvokeAdvice.h>
#include <cli/Text.h>
#include <mof/Names.h>

#include <algorithm>
#include <vector>

namespace cli {

namespace {

std::string MethodsOf(const mof::Schema& schema, const std::string& className) {
    const mof::Class* const cls = schema.Find(className);
    if (cls == nullptr) return "";
    std::vector<std::string> names;
    for (const auto& method : mof::AllMethods(schema, *cls)) names.push_back(method.member->name);
    if (names.empty()) return "The class has no method.";
    return "Its methods are " + Listed(names) + ".";
}

// Whether the path has each of the target's keys.
bool IsMeant(const host::ObjectPath& path, const host::ObjectPath& target) {
    return std::ranges::all_of(target.keys, [&](const host::NamedValue& key) {
        const host::Value* const value = host::FindValue(path.keys, key.name);
        return value != nullptr && ValueText(*value) == ValueText(key.value);
    });
}

std::string InstanceAdvice(host::Host& host, const host::ObjectPath& target) {
    if (target.keys.empty()) return "";
    const host::NamesResult known = host.EnumerateInstanceNames(target);
    if (!known.status.IsOk() ||
        std::ranges::any_of(known.names, [&](const auto& path) { return IsMeant(path, target); }))
        return "";
    return "No instance has these keys. Run 'bmci2c names " + target.className + "' to see them.";
}

}  // namespace

std::string InvokeAdvice(host::Host& host, const host::ObjectPath& target,
                         const host::Status& status) {
    if (status.code == CMPI_RC_ERR_METHOD_NOT_FOUND)
        return MethodsOf(host.Schema(), target.className);
    if (status.code == CMPI_RC_ERR_NOT_SUPPORTED)
        return std::string("Only RunDiagnostic of ") + kServiceClass + " does something.";
    if (status.code == CMPI_RC_ERR_FAILED) return InstanceAdvice(host, target);
    return ClassAdvice(target.className, status, RegisteredClasses(host));
}

}  // namespace cli
