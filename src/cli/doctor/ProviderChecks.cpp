#include <cli/DiagnosticRun.h>
#include <cli/Errors.h>
#include <cli/Text.h>
#include <cli/doctor/ModuleChecks.h>
#include <cli/doctor/ProviderChecks.h>
#include <cli/doctor/SimulatedMachine.h>
#include <mof/Model.h>
#include <mof/Names.h>

#include <algorithm>
#include <set>
#include <string>
#include <system_error>
#include <vector>

namespace cli {

namespace {

constexpr const char* kProvidersCheck = "providers";

class ProviderProbe {
public:
    ProviderProbe(host::Host& loadedHost, const host::Registration& itsRegistration)
        : host(loadedHost),
          registration(itsRegistration),
          cls(*host.Schema().Find(registration.className)) {}

    // The provider's errors, each a part of a sentence.
    std::vector<std::string> Troubles() {
        LookAtInstances();
        LookAtNames();
        LookAtMethods();
        if (registration.HasType(host::kAssociationType)) LookAtAssociators();
        return std::move(troubles);
    }

    bool ShowedInstances() const { return !instances.empty(); }

private:
    void Add(std::string trouble) {
        if (trouble.ends_with('.')) trouble.pop_back();
        if (std::find(troubles.begin(), troubles.end(), trouble) == troubles.end())
            troubles.push_back(std::move(trouble));
    }

    bool Succeeded(const std::string& request, const host::Status& status) {
        if (!status.IsOk()) Add(request + " ends with " + StatusText(status));
        return status.IsOk();
    }

    void LookAtInstances() {
        host::InstancesResult result = host.EnumerateInstances(ClassPath(cls.name));
        if (!Succeeded("enumerating its instances", result.status)) return;
        instances = std::move(result.instances);
        for (const host::Instance& instance : instances) {
            for (const std::string& refusal : instance.refused) Add(refusal);
            for (const std::string& name : instance.untouched)
                Add("it does not know the property '" + name + "'");
        }
    }

    std::set<std::string> KeyNames(const host::ObjectPath& path) const {
        std::set<std::string> names;
        for (const host::NamedValue& key : path.keys) names.insert(mof::FoldedName(key.name));
        return names;
    }

    // Paths come as the provider made them; an instance's path holds the keys of the MOF. There may
    // be more paths than instances: some providers show more at every request.
    void LookAtNames() {
        const host::NamesResult result = host.EnumerateInstanceNames(ClassPath(cls.name));
        if (!Succeeded("enumerating its object paths", result.status)) return;
        const std::size_t both = std::min(instances.size(), result.names.size());
        for (std::size_t i = 0; i < both; ++i)
            if (KeyNames(result.names[i]) != KeyNames(instances[i].path))
                Add("the keys of its object path " + result.names[i].ToString() +
                    " are not those of the MOF");
    }

    // Most methods are answered with "not supported", which only a method that is known can be.
    void LookAtMethods() {
        const host::ObjectPath target =
            instances.empty() ? ClassPath(cls.name) : instances.front().path;
        for (const auto& [method, origin, declarer] : mof::AllMethods(host.Schema(), cls)) {
            const host::Status status = host.InvokeMethod(target, method->name, {}).status;
            if (status.code == CMPI_RC_ERR_METHOD_NOT_FOUND)
                Add("it does not know the method '" + method->name + "'");
        }
    }

    void LookAtAssociators() {
        if (instances.empty()) return;
        for (const auto& [name, value] : instances.front().properties) {
            const auto* end = std::get_if<std::shared_ptr<const host::ObjectPath>>(&value.data);
            if (end == nullptr) continue;
            const host::NamesResult others = host.AssociatorNames(**end, cls.name, "", "", "");
            if (Succeeded("following it from '" + name + "'", others.status) &&
                others.names.empty())
                Add("following it from '" + name + "' leads nowhere");
        }
    }

    host::Host& host;
    const host::Registration& registration;
    const mof::Class& cls;
    std::vector<host::Instance> instances;
    std::vector<std::string> troubles;
};

// Without a run there are no records to show.
void RunOnce(host::Host& host, Checks& checks) {
    try {
        InvokeDiagnostic(host);
    } catch (const CallError& error) {
        checks.push_back(Bad(kProvidersCheck, error.what(), kReinstall));
    }
}

Checks AskProviders(host::Host& host) {
    Checks checks;
    RunOnce(host, checks);
    std::size_t showing = 0;
    for (const host::Registration& one : host.Registrations()) {
        ProviderProbe probe(host, one);
        if (const std::vector<std::string> troubles = probe.Troubles(); !troubles.empty())
            checks.push_back(Bad(kProvidersCheck,
                                 "The provider of " + one.className +
                                     " and the MOF disagree: " + Listed(troubles) + ".",
                                 kReinstall));
        if (probe.ShowedInstances()) ++showing;
    }
    if (!checks.empty()) return checks;
    return {Good(kProvidersCheck,
                 "The " + Counted(host.Registrations().size(), "provider", "providers") +
                     " of the module answer; " + std::to_string(showing) +
                     " of them show instances, which agree with the MOF.")};
}

}  // namespace

Checks CheckProviders(const host::HostFiles& files) {
    try {
        const SimulatedMachine inPlaceOfThisOne;
        host::Host host(files);
        return AskProviders(host);
    } catch (const std::system_error& error) {
        return {
            Bad(kProvidersCheck,
                "The providers were not asked, because the folder for temporary files cannot be "
                "used: " +
                    error.code().message() + ".",
                "Make room in it, or name another one with the variable TMPDIR.")};
    } catch (const std::exception& error) {
        return {Bad(kProvidersCheck, error.what(), kReinstall)};
    }
}

}  // namespace cli
