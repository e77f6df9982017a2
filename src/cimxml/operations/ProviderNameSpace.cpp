#include <cimxml/operations/NameSpace.h>
#include <host/requests/InstanceRequests.h>
#include <mof/Names.h>

#include <algorithm>
#include <utility>

namespace cimxml {

namespace {

using host::AssociationQuery;
using host::InstancesResult;
using host::NamesResult;
using host::ObjectPath;
using host::PropertyList;

class ProviderNameSpace : public NameSpace {
public:
    ProviderNameSpace(std::string itsName, host::Host& itsHost)
        : NameSpace(std::move(itsName)), host(itsHost) {}

    const host::ClassRepository& Classes() const override { return host.Classes(); }

    InstancesResult EnumerateInstances(const ObjectPath& classPath,
                                       PropertyList properties) const override {
        if (!IsServed(classPath)) return {};
        return host.EnumerateInstances(classPath, properties);
    }

    NamesResult EnumerateInstanceNames(const ObjectPath& classPath) const override {
        if (!IsServed(classPath)) return {};
        return host.EnumerateInstanceNames(classPath);
    }

    InstancesResult GetInstance(const ObjectPath& path, PropertyList properties) const override {
        if (!IsServedItself(path)) return {host::NoSuchInstance(path), {}};
        return host.GetInstance(path, properties);
    }

    InstancesResult Associators(const AssociationQuery& query,
                                PropertyList properties) const override {
        return host.Associators(query.source, query.associationClass, query.resultClass, query.role,
                                query.resultRole, properties);
    }

    NamesResult AssociatorNames(const AssociationQuery& query) const override {
        return host.AssociatorNames(query.source, query.associationClass, query.resultClass,
                                    query.role, query.resultRole);
    }

    InstancesResult References(const AssociationQuery& query,
                               PropertyList properties) const override {
        return host.References(query.source, query.associationClass, query.role, properties);
    }

    NamesResult ReferenceNames(const AssociationQuery& query) const override {
        return host.ReferenceNames(query.source, query.associationClass, query.role);
    }

    host::MethodResult InvokeMethod(const ObjectPath& target, const std::string& method,
                                    const std::vector<host::NamedValue>& arguments) const override {
        return host.InvokeMethod(target, method, arguments);
    }

private:
    // A base class from which no class with a provider derives has no instances, so no provider is
    // asked.
    bool IsServed(const ObjectPath& classPath) const {
        const auto& registrations = host.Registrations();
        return std::any_of(registrations.begin(), registrations.end(), [&](const auto& one) {
            const host::ClassInfo* const cls = Classes().Find(one.className);
            return one.IsIn(name) && cls->IsA(classPath.className);
        });
    }

    // True when the class has a provider of its own: an instance belongs to the class that its path
    // names, not to one that derives from it.
    bool IsServedItself(const ObjectPath& path) const {
        const auto& registrations = host.Registrations();
        return std::any_of(registrations.begin(), registrations.end(), [&](const auto& one) {
            return one.IsIn(name) && mof::SameName(one.className, path.className);
        });
    }

    host::Host& host;
};

}  // namespace

NameSpaces ProviderNameSpaces(host::Host& host) {
    NameSpaces all;
    for (const host::Registration& one : host.Registrations())
        for (const std::string& name : one.nameSpaces)
            if (std::none_of(all.begin(), all.end(),
                             [&](const auto& known) { return mof::SameName(known->name, name); }))
                all.push_back(std::make_unique<ProviderNameSpace>(name, host));
    return all;
}

}  // namespace cimxml
