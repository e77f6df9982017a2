#include "Fake_Broker.h"

namespace fake {

namespace {

Arena& arena_of(const CMPIBroker* broker) {
    return const_cast<Broker*>(static_cast<const Broker*>(broker))->arena;
}

CMPIEnumeration* enumerate(const CMPIBroker* cmpiBroker, const CMPIContext* context,
                           const CMPIObjectPath* classPath, const char** /*properties*/,
                           CMPIStatus* status) {
    auto& broker = *const_cast<Broker*>(static_cast<const Broker*>(cmpiBroker));
    broker.upcallContext = context;
    const auto answer = broker.onEnumerate;  // which may put another in its place
    return answer(*static_cast<const Path*>(classPath), status);
}

}  // namespace

Broker::Broker() : CMPIBroker{nullptr, &services, &factories, nullptr, nullptr} {
    services.enumerateInstances = enumerate;
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

}  // namespace fake
