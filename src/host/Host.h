// The embedded CMPI host: loads a provider module as a CIMOM does (dlopen, factories by name, CMPI
// function tables) and routes requests and up-calls to its providers.
//
//     host::Host host({.module = "lib/libbmci2c.cmpi.so", .schema = "…/bmci2c.mof",
//                      .registrations = "…/bmci2c.reg"});
//     auto jobs = host.EnumerateInstances({"root/QUVSD", "QUVSG_BMCI2C_ConcreteJob", {}});
#pragma once

#include <host/Message.h>
#include <host/Status.h>
#include <host/Value.h>
#include <host/loading/LoadError.h>
#include <host/loading/Registration.h>
#include <host/schema/ClassRepository.h>
#include <mof/Model.h>

#include <memory>
#include <string>
#include <vector>

namespace host {

struct HostFiles {
    std::string module;         // the provider module (a shared library)
    std::string schema;         // MOF of the classes
    std::string registrations;  // which provider serves which class (sfcb's format)
};

struct InstancesResult {
    Status status;
    std::vector<Instance> instances;
};

struct NamesResult {
    Status status;
    std::vector<ObjectPath> names;
};

struct MethodResult {
    Status status;
    Value returnValue;
    std::vector<NamedValue> out;
};

class Host {
public:
    // Loads everything; `sink` takes what the host has to tell. Throws LoadError.
    explicit Host(const HostFiles& files, MessageSink sink = {});

    // Cleans up every interface, as a CIMOM does when it ends, and closes the module (unless one of
    // them answers that it must stay).
    ~Host();

    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // Requests of a client. `properties`: null for all, else the wanted ones. May be called from
    // several threads concurrently.
    //
    // An unknown namespace is answered with CMPI_RC_ERR_INVALID_NAMESPACE, an unknown class with
    // CMPI_RC_ERR_INVALID_CLASS, and a class without a provider, or whose provider lacks the
    // interface, with CMPI_RC_ERR_NOT_SUPPORTED. Keys, properties and arguments are typed by the
    // class where they are given as text. Enumerating a class also enumerates the registered
    // classes that derive from it; of several classes, those that fail are left out and logged, and
    // the request fails only when all of them do. An instance or association that a provider does
    // not support asking for is looked for among those that the provider enumerates.
    InstancesResult EnumerateInstances(const ObjectPath& classPath,
                                       const std::vector<std::string>* properties = nullptr);
    NamesResult EnumerateInstanceNames(const ObjectPath& classPath);
    InstancesResult GetInstance(const ObjectPath& instancePath,
                                const std::vector<std::string>* properties = nullptr);
    InstancesResult Associators(const ObjectPath& source, const std::string& associationClass,
                                const std::string& resultClass, const std::string& role,
                                const std::string& resultRole,
                                const std::vector<std::string>* properties = nullptr);
    NamesResult AssociatorNames(const ObjectPath& source, const std::string& associationClass,
                                const std::string& resultClass, const std::string& role,
                                const std::string& resultRole);
    InstancesResult References(const ObjectPath& source, const std::string& resultClass,
                               const std::string& role,
                               const std::vector<std::string>* properties = nullptr);
    NamesResult ReferenceNames(const ObjectPath& source, const std::string& resultClass,
                               const std::string& role);
    MethodResult InvokeMethod(const ObjectPath& target, const std::string& method,
                              const std::vector<NamedValue>& arguments);

    const mof::Schema& Schema() const;
    const ClassRepository& Classes() const;
    const std::vector<Registration>& Registrations() const;

private:
    struct State;
    std::unique_ptr<State> state;
};

}  // namespace host
