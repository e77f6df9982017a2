// A CIM server with one of the personalities: loads the module, passes it requests, answers its
// up-calls, and writes down what a real server would not have survived.
//
//     Server server(kSfcb);
//     const Reply jobs = server.EnumerateInstances("QUVSG_BMCI2C_ConcreteJob");
#pragma once

#include <Fake_Broker.h>
#include <host/schema/ClassRepository.h>

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <tuple>
#include <vector>

#include "Completion.h"
#include "Module.h"
#include "Personality.h"
#include "Reply.h"
#include "Request.h"

// What an association request is restricted to; null does not restrict.
struct AssociationFilter {
    const char* resultClass = nullptr;
    const char* role = nullptr;
    const char* resultRole = nullptr;
};

class Server : public fake::Broker {
public:
    explicit Server(const Personality& serverPersonality);

    // Cleans up every interface, as at the server's end.
    ~Server() override;

    const host::ClassRepository& Classes() const { return classes; }

    // The module's classes, in the order of the schema.
    std::vector<std::string> ModuleClasses() const;

    void LeaveOut(const std::string& property) { completion.LeaveOut(property); }

    Reply EnumerateInstances(const std::string& className, const char** properties = nullptr);
    Reply EnumerateInstanceNames(const std::string& className);
    Reply GetInstance(const Path& path);
    Reply CreateInstance(const std::string& className);
    Reply ModifyInstance(const Path& path);
    Reply DeleteInstance(const Path& path);
    Reply Associators(const std::string& associationClass, const Path& source,
                      const AssociationFilter& filter = {});
    Reply AssociatorNames(const std::string& associationClass, const Path& source,
                          const AssociationFilter& filter = {});
    Reply References(const std::string& associationClass, const Path& source,
                     const AssociationFilter& filter = {});
    Reply ReferenceNames(const std::string& associationClass, const Path& source,
                         const AssociationFilter& filter = {});

    // `fill` adds the arguments; without it the provider gets none at all.
    using FillArguments = std::function<void(fake::Args& arguments, fake::Arena& arena)>;
    Reply InvokeMethod(const Path& target, const std::string& method,
                       const FillArguments& fill = {});

    // Calls the cleanup of every interface that was made; returns their answers.
    std::vector<CMPIrc> CleanUp(bool isTerminating);

    // Makes the interface, if it was not made; false when the module has no factory for it.
    template <class Interface>
    bool Make(const std::string& className) {
        return InterfaceOf<Interface>(className) != nullptr;
    }

    // What a real server would not have survived, or would have logged as the provider's mistake.
    std::vector<std::string> Complaints();

    fake::Arena& arena_of_new_objects() override;
    CMPIEnumeration* enumerate(const CMPIContext* context, const fake::Path& classPath,
                               CMPIStatus* status) override;

private:
    template <class Interface>
    using Interfaces = std::map<std::string, Interface*>;  // by class

    template <class Interface>
    Interface* InterfaceOf(const std::string& className);

    // Makes a request of a provider. call(interface, request) passes it on.
    template <class Interface, class Call>
    Reply Ask(const std::string& className, const Call& call);
    template <class Interface, class Call>
    CMPIStatus Pass(Request& request, const std::string& className, const Call& call);
    template <class Interface>
    void CleanUpAll(const Interfaces<Interface>& made, bool isTerminating,
                    std::vector<CMPIrc>& answers);

    CMPIStatus EnumerateInto(Request& request, const std::string& className);
    void Collect(Request& request, Reply& reply);
    fake::Path* PathIn(Request& request, const Path& path) const;
    void CheckPath(const char* nameSpace, const char* className);
    void Complain(const std::string& complaint);

    const Personality personality;
    const host::ClassRepository classes;
    const Module module;
    Completion completion{personality, classes};

    std::mutex interfacesLock;  // guards `interfaces`
    std::tuple<Interfaces<CMPIInstanceMI>, Interfaces<CMPIMethodMI>, Interfaces<CMPIAssociationMI>>
        interfaces;

    std::mutex complaintsLock;  // guards `complaints`
    std::vector<std::string> complaints;
};
