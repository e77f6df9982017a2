#include <host/Status.h>
#include <host/requests/Router.h>
#include <host/schema/TypedValue.h>
#include <mof/Names.h>

#include <algorithm>
#include <optional>

namespace host {

namespace {

// The keys in the types of the class; the provider judges values that do not fit.
std::vector<NamedValue> TypedKeys(const ClassInfo& cls, std::vector<NamedValue> keys) {
    for (NamedValue& key : keys)
        if (const PropertyInfo* const property = cls.FindProperty(key.name))
            key.value = Typed(key.value, property->type).value_or(key.value);
    return keys;
}

[[noreturn]] void FailUnserved(const ObjectPath& path) {
    throw Failure(CMPI_RC_ERR_NOT_SUPPORTED, "No provider serves the class '" + path.className +
                                                 "' in the namespace '" + path.nameSpace + "'.");
}

}  // namespace

Router::Router(const ClassRepository& repository, const std::vector<Registration>& registered)
    : classes(repository), registrations(registered) {}

const ClassInfo& Router::ClassOf(const ObjectPath& path) const {
    const bool isServed =
        std::any_of(registrations.begin(), registrations.end(),
                    [&](const Registration& one) { return one.IsIn(path.nameSpace); });
    if (!isServed)
        throw Failure(CMPI_RC_ERR_INVALID_NAMESPACE, "Unknown namespace '" + path.nameSpace + "'.");
    const ClassInfo* const cls = classes.Find(path.className);
    if (!cls)
        throw Failure(CMPI_RC_ERR_INVALID_CLASS, "There is no class '" + path.className +
                                                     "' in the namespace '" + path.nameSpace +
                                                     "'.");
    return *cls;
}

Target Router::Registered(const ClassInfo& cls, const std::string& nameSpace) const {
    for (const Registration& one : registrations)
        if (mof::SameName(one.className, cls.Name()) && one.IsIn(nameSpace))
            return {&one, &cls, {nameSpace, cls.Name(), {}}};
    return {nullptr, &cls, {}};
}

std::vector<Target> Router::All(const std::string& nameSpace) const {
    std::vector<Target> all;
    for (const Registration& one : registrations) {
        const ClassInfo* const cls = classes.Find(one.className);
        if (one.IsIn(nameSpace)) all.push_back({&one, cls, {nameSpace, cls->Name(), {}}});
    }
    return all;
}

Target Router::One(const ObjectPath& path, const std::string& type) const {
    const ClassInfo& cls = ClassOf(path);
    Target target = Registered(cls, path.nameSpace);
    if (!target.registration) FailUnserved(path);
    if (!target.registration->HasType(type))
        throw Failure(CMPI_RC_ERR_NOT_SUPPORTED, "The provider of the class '" + path.className +
                                                     "' has no " + type + " interface.");
    target.path.keys = TypedKeys(cls, path.keys);
    return target;
}

std::vector<Target> Router::WithSubclasses(const ObjectPath& classPath) const {
    const ClassInfo& cls = ClassOf(classPath);
    std::vector<Target> targets = All(classPath.nameSpace);
    std::erase_if(targets, [&](const Target& target) {
        return !target.cls->IsA(cls.Name()) || !target.registration->HasType(kInstanceType);
    });
    if (targets.empty()) FailUnserved(classPath);
    return targets;
}

void AskEach(const std::vector<Target>& targets, const MessageSink& sink,
             const std::function<void(const Target&)>& ask) {
    std::optional<Status> firstError;
    bool isAnswered = targets.empty();
    for (const Target& target : targets) {
        try {
            ask(target);
            isAnswered = true;
        } catch (const Failure& failure) {
            if (!firstError) firstError = failure.status;
            if (sink && targets.size() > 1)
                sink(
                    {CMPI_SEV_WARNING, target.registration->provider,
                     "The class '" + target.cls->Name() + "' is left out: " + failure.status.text});
        }
    }
    if (!isAnswered) throw Failure(*firstError);
}

}  // namespace host
