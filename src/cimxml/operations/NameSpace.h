// A CIM namespace: its classes, and where its instances come from.
#pragma once

#include <host/Host.h>
#include <host/requests/AssociationQuery.h>
#include <host/requests/ProviderCall.h>
#include <host/schema/ClassRepository.h>

#include <memory>
#include <string>
#include <vector>

namespace cimxml {

class NameSpace {
public:
    explicit NameSpace(std::string itsName) : name(std::move(itsName)) {}
    virtual ~NameSpace() = default;
    NameSpace(const NameSpace&) = delete;
    NameSpace& operator=(const NameSpace&) = delete;

    const std::string name;

    virtual const host::ClassRepository& Classes() const = 0;

    // Sets all namespaces of the server, which must outlive it; called before any request.
    virtual void Meet(const std::vector<const NameSpace*>& /*all*/) {}

    // Requests, from several threads concurrently. Paths lie in this namespace and name classes
    // that it has; `properties` is null for all.
    virtual host::InstancesResult EnumerateInstances(const host::ObjectPath& classPath,
                                                     host::PropertyList properties) const = 0;
    virtual host::NamesResult EnumerateInstanceNames(const host::ObjectPath& classPath) const = 0;
    virtual host::InstancesResult GetInstance(const host::ObjectPath& path,
                                              host::PropertyList properties) const = 0;
    virtual host::InstancesResult Associators(const host::AssociationQuery& query,
                                              host::PropertyList properties) const = 0;
    virtual host::NamesResult AssociatorNames(const host::AssociationQuery& query) const = 0;
    virtual host::InstancesResult References(const host::AssociationQuery& query,
                                             host::PropertyList properties) const = 0;
    virtual host::NamesResult ReferenceNames(const host::AssociationQuery& query) const = 0;
    virtual host::MethodResult InvokeMethod(
        const host::ObjectPath& target, const std::string& method,
        const std::vector<host::NamedValue>& arguments) const = 0;
};

using NameSpaces = std::vector<std::unique_ptr<NameSpace>>;

// Those that the host's providers serve.
NameSpaces ProviderNameSpaces(host::Host& host);

}  // namespace cimxml
