#include <cli/Text.h>
#include <cli/doctor/ModuleChecks.h>
#include <host/loading/Factories.h>
#include <host/loading/Module.h>
#include <host/loading/RegistrationsFile.h>
#include <mof/Names.h>
#include <mof/Reader.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace cli {

namespace {

constexpr const char* kModuleCheck = "module";
constexpr const char* kFunctions = "functions";
constexpr const char* kSchema = "schema";
constexpr const char* kClassPrefix = "QUVSG_BMCI2C_";  // of the classes that the module serves

// Every function that the module must export.
std::vector<std::string> FunctionsOf(const std::vector<host::Registration>& registrations) {
    std::vector<std::string> names = {"cimple_module"};
    for (const host::Registration& one : registrations) {
        names.push_back(one.provider + host::InterfaceKind<CMPIInstanceMI>::kSuffix);
        names.push_back(one.provider + host::InterfaceKind<CMPIMethodMI>::kSuffix);
        if (one.HasType(host::kAssociationType))
            names.push_back(one.provider + host::InterfaceKind<CMPIAssociationMI>::kSuffix);
    }
    return names;
}

// A list of all functions would hide the cause.
std::string FirstOf(std::vector<std::string> names) {
    constexpr std::size_t kMostNames = 4;
    if (names.size() <= kMostNames) return Listed(names);
    const std::size_t others = names.size() - kMostNames;
    names.resize(kMostNames);
    return Listed(names) + ", and " + std::to_string(others) + " more";
}

Check CheckFunctions(const host::Module& module,
                     const std::vector<host::Registration>& registrations) {
    const std::vector<std::string> names = FunctionsOf(registrations);
    std::vector<std::string> missing;
    for (const std::string& name : names)
        if (module.Find(name) == nullptr) missing.push_back(name);
    if (missing.empty())
        return Good(kFunctions,
                    "The module exports its " + std::to_string(names.size()) + " functions.");
    return Bad(kFunctions,
               "The module lacks " + std::to_string(missing.size()) + " of its " +
                   std::to_string(names.size()) + " functions: " + FirstOf(missing) + ".",
               kReinstall);
}

// The differences between a registration and its class in the MOF; empty if none.
std::string Disagreement(const mof::Schema& schema, const host::Registration& registration) {
    const mof::Class* const cls = schema.Find(registration.className);
    if (cls == nullptr)
        return "the MOF does not declare the registered class " + registration.className;
    if (mof::IsAssociation(schema, *cls) == registration.HasType(host::kAssociationType)) return "";
    return "only one of MOF and registrations says that " + registration.className +
           " is an association";
}

bool IsRegistered(const std::vector<host::Registration>& registrations, const std::string& name) {
    return std::any_of(registrations.begin(), registrations.end(),
                       [&](const auto& one) { return mof::SameName(one.className, name); });
}

Check CheckSchema(const host::HostFiles& files,
                  const std::vector<host::Registration>& registrations) {
    const mof::Schema schema = mof::ReadFile(files.schema);
    std::vector<std::string> disagreements;
    for (const host::Registration& one : registrations)
        if (std::string text = Disagreement(schema, one); !text.empty())
            disagreements.push_back(std::move(text));
    for (const mof::Class& cls : schema.classes)
        if (cls.name.starts_with(kClassPrefix) && !IsRegistered(registrations, cls.name))
            disagreements.push_back("no provider is registered for the class " + cls.name);
    if (disagreements.empty())
        return Good(kSchema,
                    "The MOF " + files.schema + " declares the " +
                        Counted(registrations.size(), "registered class", "registered classes") +
                        ".");
    return Bad(kSchema,
               "The MOF " + files.schema + " and the registrations " + files.registrations +
                   " disagree: " + Listed(disagreements) + ".",
               kReinstall);
}

// The check, or why it could not be made.
template <class Make>
void Add(Checks& checks, const char* name, const Make& make) {
    try {
        checks.push_back(make());
    } catch (const std::exception& error) {
        checks.push_back(Bad(name, error.what(), kReinstall));
    }
}

}  // namespace

Checks CheckModule(const host::HostFiles& files) {
    Checks checks;
    Add(checks, kModuleCheck, [&] {
        const host::Module module(files.module);
        return Good(kModuleCheck, "The module " + files.module + " can be loaded.");
    });
    Add(checks, kFunctions, [&] {
        const auto registrations = host::ReadRegistrations(files.registrations);
        const host::Module module(files.module);
        return CheckFunctions(module, registrations);
    });
    Add(checks, kSchema,
        [&] { return CheckSchema(files, host::ReadRegistrations(files.registrations)); });
    return checks;
}

}  // namespace cli
