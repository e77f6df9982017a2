#include "Fake_Broker.h"

namespace fake {

namespace {

Broker& broker_of(const CMPIBroker* broker) {
    return *const_cast<Broker*>(static_cast<const Broker*>(broker));
}

Arena& arena_of(const CMPIBroker* broker) { return broker_of(broker).arena_of_new_objects(); }

CMPIEnumeration* enumerate_instances(const CMPIBroker* broker, const CMPIContext* context,
                                     const CMPIObjectPath* classPath, const char** /*properties*/,
                                     CMPIStatus* status) {
    return broker_of(broker).enumerate(context, *static_cast<const Path*>(classPath), status);
}

}  // namespace

Broker::Broker() : CMPIBroker{nullptr, &services, &factories, nullptr, nullptr} {
    services.enumerateInstances = enumerate_instances;
    factories.newString = [](const CMPIBroker* broker, const char* text,
                             CMPIStatus*) -> CMPIString* { return arena_of(broker).text(text); };
    factories.newDateTimeFromChars = [](const CMPIBroker* broker, const char* text,
                                        CMPIStatus*) -> CMPIDateTime* {
        return arena_of(broker).date_time(text);
    };
    factories.newArray = [](const CMPIBroker* broker, CMPICount size, CMPIType type,
                            CMPIStatus*) -> CMPIArray* {
        Array* const array = arena_of(broker).array(type);
        array->elements.resize(size);
        return array;
    };
    factories.newObjectPath = [](const CMPIBroker* broker, const char* nameSpace,
                                 const char* className, CMPIStatus*) -> CMPIObjectPath* {
        return arena_of(broker).path(nameSpace, className);
    };
    factories.newInstance = [](const CMPIBroker* broker, const CMPIObjectPath* path,
                               CMPIStatus*) -> CMPIInstance* {
        auto* const itsPath = const_cast<CMPIObjectPath*>(path);
        return arena_of(broker).instance(static_cast<Path*>(itsPath));
    };
}

CMPIEnumeration* Broker::enumerate(const CMPIContext* context, const Path& classPath,
                                   CMPIStatus* status) {
    upcallContext = context;
    const auto answer = onEnumerate;  // which may put another in its place
    return answer(classPath, status);
}

}  // namespace fake
