#include "Server.h"

#include <mof/Reader.h>
#include <strings.h>

#include <thread>
#include <utility>

namespace {

// A server's extensions have tables of their own; nothing in them is for this module.
const void* const kEmptyTable[16] = {};

template <class Interface>
constexpr const char* kFactorySuffix = nullptr;
template <>
constexpr const char* kFactorySuffix<CMPIInstanceMI> = "_Provider_Create_InstanceMI";
template <>
constexpr const char* kFactorySuffix<CMPIMethodMI> = "_Provider_Create_MethodMI";
template <>
constexpr const char* kFactorySuffix<CMPIAssociationMI> = "_Provider_Create_AssociationMI";

template <class Interface>
using Factory = Interface* (*)(const CMPIBroker*, const CMPIContext*, CMPIStatus*);

Server& ServerOf(const CMPIBroker* broker) {
    return *const_cast<Server*>(static_cast<const Server*>(broker));
}

}  // namespace

Server::Server(const Personality& serverPersonality)
    : personality(serverPersonality),
      classes(mof::ReadFile(BMCI2C_SCHEMA)),
      module(personality.loadFlags) {
    services.brokerVersion = personality.brokerVersion;
    factories.ftVersion = personality.tableVersion;
    if (personality.hasMemoryTable) mft = reinterpret_cast<const CMPIBrokerMemFT*>(kEmptyTable);
    factories.newObjectPath = [](const CMPIBroker* broker, const char* nameSpace,
                                 const char* className, CMPIStatus*) -> CMPIObjectPath* {
        ServerOf(broker).CheckPath(nameSpace, className);
        return ServerOf(broker).arena_of_new_objects().path(nameSpace, className);
    };
    if (!personality.makesInterfacesAtOnce) return;
    for (const std::string& className : ModuleClasses()) {
        Make<CMPIInstanceMI>(className);
        Make<CMPIAssociationMI>(className);
        Make<CMPIMethodMI>(className);
    }
}

Server::~Server() { CleanUp(true); }

std::vector<std::string> Server::ModuleClasses() const {
    std::vector<std::string> names;
    for (const mof::Class& declared : classes.Schema().classes)
        if (declared.name.starts_with("QUVSG_BMCI2C_")) names.push_back(declared.name);
    return names;
}

template <class Interface>
Interface* Server::InterfaceOf(const std::string& className) {
    const std::lock_guard guard(interfacesLock);
    Interface*& made = std::get<Interfaces<Interface>>(interfaces)[className];
    if (made != nullptr) return made;
    const auto factory =
        reinterpret_cast<Factory<Interface>>(module.Find(className + kFactorySuffix<Interface>));
    if (factory == nullptr) return nullptr;
    Request request(personality);
    const Request::Scope scope(request);
    CMPIStatus status{CMPI_RC_OK, nullptr};
    made = factory(this, &request.context, &status);
    return made;
}

template bool Server::Make<CMPIInstanceMI>(const std::string&);
template bool Server::Make<CMPIMethodMI>(const std::string&);
template bool Server::Make<CMPIAssociationMI>(const std::string&);

template <class Interface, class Call>
CMPIStatus Server::Pass(Request& request, const std::string& className, const Call& call) {
    const Request::Scope scope(request);
    Interface* const interface = InterfaceOf<Interface>(className);
    if (interface == nullptr) return {CMPI_RC_ERR_NOT_SUPPORTED, nullptr};
    return call(interface, request);
}

template <class Interface, class Call>
Reply Server::Ask(const std::string& className, const Call& call) {
    Request request(personality);
    Reply reply;
    const CMPIStatus status = Pass<Interface>(request, className, call);
    reply.status.rc = status.rc;
    if (status.msg != nullptr) reply.text = static_cast<const fake::Text*>(status.msg)->text;
    Collect(request, reply);
    return reply;
}

void Server::Collect(Request& request, Reply& reply) {
    for (const CMPIData& value : request.result.values) {
        if (value.type == CMPI_instance) {
            auto& instance = *static_cast<fake::Instance*>(value.value.inst);
            completion.Complete(instance);
            reply.instances.push_back(ToObject(instance));
        } else if (value.type == CMPI_ref) {
            auto& path = *static_cast<fake::Path*>(value.value.ref);
            completion.Complete(path);
            reply.paths.push_back(to_text(&path));
        } else {
            reply.values.push_back(fake::to_text(value));
        }
    }
    reply.ends = request.result.ends;
}

Reply Server::EnumerateInstances(const std::string& className, const char** properties) {
    return Ask<CMPIInstanceMI>(className, [&](CMPIInstanceMI* interface, Request& request) {
        return interface->ft->enumerateInstances(interface, &request.context, &request.result,
                                                 PathIn(request, {className, {}}), properties);
    });
}

Reply Server::EnumerateInstanceNames(const std::string& className) {
    return Ask<CMPIInstanceMI>(className, [&](CMPIInstanceMI* interface, Request& request) {
        return interface->ft->enumerateInstanceNames(interface, &request.context, &request.result,
                                                     PathIn(request, {className, {}}));
    });
}

Reply Server::GetInstance(const Path& path) {
    return Ask<CMPIInstanceMI>(path.className, [&](CMPIInstanceMI* interface, Request& request) {
        return interface->ft->getInstance(interface, &request.context, &request.result,
                                          PathIn(request, path), nullptr);
    });
}

Reply Server::CreateInstance(const std::string& className) {
    return Ask<CMPIInstanceMI>(className, [&](CMPIInstanceMI* interface, Request& request) {
        fake::Path* const path = PathIn(request, {className, {}});
        return interface->ft->createInstance(interface, &request.context, &request.result, path,
                                             request.arena.instance(path));
    });
}

Reply Server::ModifyInstance(const Path& path) {
    return Ask<CMPIInstanceMI>(path.className, [&](CMPIInstanceMI* interface, Request& request) {
        fake::Path* const object = PathIn(request, path);
        return interface->ft->modifyInstance(interface, &request.context, &request.result, object,
                                             request.arena.instance(object), nullptr);
    });
}

Reply Server::DeleteInstance(const Path& path) {
    return Ask<CMPIInstanceMI>(path.className, [&](CMPIInstanceMI* interface, Request& request) {
        return interface->ft->deleteInstance(interface, &request.context, &request.result,
                                             PathIn(request, path));
    });
}

Reply Server::Associators(const std::string& associationClass, const Path& source,
                          const AssociationFilter& filter) {
    return Ask<CMPIAssociationMI>(associationClass, [&](CMPIAssociationMI* interface,
                                                        Request& request) {
        return interface->ft->associators(
            interface, &request.context, &request.result, PathIn(request, source),
            associationClass.c_str(), filter.resultClass, filter.role, filter.resultRole, nullptr);
    });
}

Reply Server::AssociatorNames(const std::string& associationClass, const Path& source,
                              const AssociationFilter& filter) {
    return Ask<CMPIAssociationMI>(
        associationClass, [&](CMPIAssociationMI* interface, Request& request) {
            return interface->ft->associatorNames(
                interface, &request.context, &request.result, PathIn(request, source),
                associationClass.c_str(), filter.resultClass, filter.role, filter.resultRole);
        });
}

Reply Server::References(const std::string& associationClass, const Path& source,
                         const AssociationFilter& filter) {
    return Ask<CMPIAssociationMI>(
        associationClass, [&](CMPIAssociationMI* interface, Request& request) {
            return interface->ft->references(interface, &request.context, &request.result,
                                             PathIn(request, source), filter.resultClass,
                                             filter.role, nullptr);
        });
}

Reply Server::ReferenceNames(const std::string& associationClass, const Path& source,
                             const AssociationFilter& filter) {
    return Ask<CMPIAssociationMI>(
        associationClass, [&](CMPIAssociationMI* interface, Request& request) {
            return interface->ft->referenceNames(interface, &request.context, &request.result,
                                                 PathIn(request, source), filter.resultClass,
                                                 filter.role);
        });
}

Reply Server::InvokeMethod(const Path& target, const std::string& method,
                           const FillArguments& fill) {
    std::map<std::string, std::string> outputs;
    Reply reply =
        Ask<CMPIMethodMI>(target.className, [&](CMPIMethodMI* interface, Request& request) {
            fake::Args* const in = fill ? request.arena.args() : nullptr;
            fake::Args* const out = request.arena.args();
            if (fill) fill(*in, request.arena);
            const CMPIStatus status =
                interface->ft->invokeMethod(interface, &request.context, &request.result,
                                            PathIn(request, target), method.c_str(), in, out);
            for (const CMPIData& value : request.result.values)
                if (value.type == CMPI_ref)
                    Complain(method + " returned a reference as its value.");
            for (const auto& [name, value] : out->arguments) {
                if (value.type == CMPI_ref)
                    completion.Complete(*static_cast<fake::Path*>(value.value.ref));
                outputs.emplace(name, fake::to_text(value));
            }
            return status;
        });
    reply.out = std::move(outputs);
    return reply;
}

// Without the lock: a cleanup waits for its provider, whose up-call may be waiting for an
// interface.
std::vector<CMPIrc> Server::CleanUp(bool isTerminating) {
    std::unique_lock guard(interfacesLock);
    const auto made = interfaces;
    guard.unlock();
    std::vector<CMPIrc> answers;
    CleanUpAll(std::get<Interfaces<CMPIInstanceMI>>(made), isTerminating, answers);
    CleanUpAll(std::get<Interfaces<CMPIMethodMI>>(made), isTerminating, answers);
    CleanUpAll(std::get<Interfaces<CMPIAssociationMI>>(made), isTerminating, answers);
    return answers;
}

template <class Interface>
void Server::CleanUpAll(const Interfaces<Interface>& made, bool isTerminating,
                        std::vector<CMPIrc>& answers) {
    for (const auto& [className, interface] : made) {
        if (interface == nullptr) continue;
        Request request(personality);
        const Request::Scope scope(request);
        answers.push_back(
            interface->ft->cleanup(interface, &request.context, isTerminating ? 1 : 0).rc);
    }
}

std::vector<std::string> Server::Complaints() {
    const std::lock_guard guard(complaintsLock);
    return complaints;
}

fake::Arena& Server::arena_of_new_objects() {
    if (Request* const request = Request::Current()) return request->arena;
    Complain("An object was asked for on a thread without a request.");
    return arena;
}

CMPIEnumeration* Server::enumerate(const CMPIContext* context, const fake::Path& classPath,
                                   CMPIStatus* status) {
    Request* const outer = Request::Current();
    if (outer == nullptr || context != &outer->context) {
        Complain("An up-call was made on a thread without a request, or with another's context.");
        *status = {CMPI_RC_ERR_INVALID_HANDLE, nullptr};
        return nullptr;
    }
    outer->upCalls.push_back(std::make_unique<Request>(personality));
    Request& inner = *outer->upCalls.back();
    const auto ask = [&] { *status = EnumerateInto(inner, classPath.className); };
    if (personality.asksOnAnotherThread)
        std::thread(ask).join();
    else
        ask();
    if (status->rc != CMPI_RC_OK) return nullptr;
    for (const CMPIData& value : inner.result.values)
        completion.Complete(*static_cast<fake::Instance*>(value.value.inst));
    return outer->arena.enumeration(inner.result.values);
}

CMPIStatus Server::EnumerateInto(Request& request, const std::string& className) {
    return Pass<CMPIInstanceMI>(request, className, [&](CMPIInstanceMI* interface, Request&) {
        return interface->ft->enumerateInstances(interface, &request.context, &request.result,
                                                 PathIn(request, {className, {}}), nullptr);
    });
}

fake::Path* Server::PathIn(Request& request, const Path& path) const {
    fake::Path* const object = request.arena.path(personality.nameSpace, path.className);
    for (const auto& [name, text] : path.keys) {
        CMPIData value = request.arena.string_data(text);
        value.state = personality.keyState;
        object->with_key(name.c_str(), value);
    }
    return object;
}

void Server::CheckPath(const char* nameSpace, const char* className) {
    if (strcasecmp(nameSpace, personality.nameSpace) != 0)
        Complain(std::string("A path names the unknown namespace '") + nameSpace + "'.");
    if (classes.Find(className) == nullptr)
        Complain(std::string("A path names the unknown class '") + className + "'.");
}

void Server::Complain(const std::string& complaint) {
    const std::lock_guard guard(complaintsLock);
    complaints.push_back(complaint);
}
