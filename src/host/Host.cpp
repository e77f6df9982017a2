#include <host/Host.h>
#include <host/broker/Services.h>
#include <host/loading/Factories.h>
#include <host/loading/RegistrationsFile.h>
#include <host/requests/AssociationRequests.h>
#include <host/requests/MethodRequests.h>
#include <mof/Reader.h>

#include <utility>

namespace host {

namespace {

mof::Schema ReadSchema(const std::string& path) {
    try {
        return mof::ReadFile(path);
    } catch (const mof::Error& error) {
        throw LoadError(std::string("The schema cannot be read: ") + error.what());
    }
}

// Reads the registrations and checks that the host can serve them: every class is in the schema,
// and all of them are in one module.
std::vector<Registration> ReadServable(const HostFiles& files, const ClassRepository& classes) {
    auto registrations = ReadRegistrations(files.registrations);
    for (const Registration& one : registrations) {
        if (!classes.Find(one.className))
            throw LoadError("The registrations '" + files.registrations + "' name the class '" +
                            one.className + "', which the schema '" + files.schema +
                            "' does not declare.");
        if (one.location != registrations.front().location)
            throw LoadError("The registrations '" + files.registrations + "' name the locations '" +
                            registrations.front().location + "' and '" + one.location +
                            "', but the host loads one module.");
    }
    return registrations;
}

}  // namespace

struct Host::State {
    State(const HostFiles& files, MessageSink messageSink)
        : sink(std::move(messageSink)),
          classes(ReadSchema(files.schema)),
          registrations(ReadServable(files, classes)),
          module(files.module),
          router(classes, registrations),
          providers(module, broker, classes, sink),
          instances(router, providers, sink),
          associations(router, providers, instances, sink),
          methods(router, providers) {
        CheckFactories(module, registrations);
    }

    ~State() { providers.CleanUp(); }

    State(const State&) = delete;
    State& operator=(const State&) = delete;

    const MessageSink sink;
    const ClassRepository classes;
    const std::vector<Registration> registrations;
    Module module;
    const Router router;
    ProviderTable providers;
    InstanceRequests instances;
    AssociationRequests associations;
    MethodRequests methods;
    const Services services{classes, instances};
    const CMPIBroker broker{&services, &kUpCalls, &kFactories, nullptr, nullptr};
};

Host::Host(const HostFiles& files, MessageSink sink)
    : state(std::make_unique<State>(files, std::move(sink))) {}

Host::~Host() = default;

InstancesResult Host::EnumerateInstances(const ObjectPath& classPath,
                                         const std::vector<std::string>* properties) {
    return Answered<InstancesResult>([&](InstancesResult& answer) {
        answer.instances =
            state->instances.Enumerate(ClientContext(classPath.nameSpace), classPath, properties);
    });
}

NamesResult Host::EnumerateInstanceNames(const ObjectPath& classPath) {
    return Answered<NamesResult>([&](NamesResult& answer) {
        answer.names =
            state->instances.EnumerateNames(ClientContext(classPath.nameSpace), classPath);
    });
}

InstancesResult Host::GetInstance(const ObjectPath& instancePath,
                                  const std::vector<std::string>* properties) {
    return Answered<InstancesResult>([&](InstancesResult& answer) {
        answer.instances.push_back(
            state->instances.Get(ClientContext(instancePath.nameSpace), instancePath, properties));
    });
}

InstancesResult Host::Associators(const ObjectPath& source, const std::string& associationClass,
                                  const std::string& resultClass, const std::string& role,
                                  const std::string& resultRole,
                                  const std::vector<std::string>* properties) {
    return Answered<InstancesResult>([&](InstancesResult& answer) {
        answer.instances = state->associations.Associators(
            ClientContext(source.nameSpace),
            {source, associationClass, resultClass, role, resultRole}, properties);
    });
}

NamesResult Host::AssociatorNames(const ObjectPath& source, const std::string& associationClass,
                                  const std::string& resultClass, const std::string& role,
                                  const std::string& resultRole) {
    return Answered<NamesResult>([&](NamesResult& answer) {
        answer.names = state->associations.AssociatorNames(
            ClientContext(source.nameSpace),
            {source, associationClass, resultClass, role, resultRole});
    });
}

InstancesResult Host::References(const ObjectPath& source, const std::string& resultClass,
                                 const std::string& role,
                                 const std::vector<std::string>* properties) {
    return Answered<InstancesResult>([&](InstancesResult& answer) {
        answer.instances = state->associations.References(
            ClientContext(source.nameSpace),
            {.source = source, .associationClass = resultClass, .role = role}, properties);
    });
}

NamesResult Host::ReferenceNames(const ObjectPath& source, const std::string& resultClass,
                                 const std::string& role) {
    return Answered<NamesResult>([&](NamesResult& answer) {
        answer.names = state->associations.ReferenceNames(
            ClientContext(source.nameSpace),
            {.source = source, .associationClass = resultClass, .role = role});
    });
}

MethodResult Host::InvokeMethod(const ObjectPath& target, const std::string& method,
                                const std::vector<NamedValue>& arguments) {
    return Answered<MethodResult>([&](MethodResult& answer) {
        MethodAnswer answered =
            state->methods.Invoke(ClientContext(target.nameSpace), target, method, arguments);
        answer.returnValue = std::move(answered.returnValue);
        answer.out = std::move(answered.out);
    });
}

const mof::Schema& Host::Schema() const { return state->classes.Schema(); }

const ClassRepository& Host::Classes() const { return state->classes; }

const std::vector<Registration>& Host::Registrations() const { return state->registrations; }

}  // namespace host
