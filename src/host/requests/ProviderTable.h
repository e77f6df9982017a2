// The interfaces of the module's providers: made at their first use, cleaned up at the end.
#pragma once

#include <cmpi/cmpi.h>
#include <host/Message.h>
#include <host/loading/Factories.h>
#include <host/loading/Module.h>
#include <host/schema/ClassRepository.h>

#include <map>
#include <mutex>
#include <string>
#include <tuple>

namespace host {

class ProviderTable {
public:
    ProviderTable(Module& providerModule, const CMPIBroker& hostBroker,
                  const ClassRepository& repository, const MessageSink& messageSink)
        : module(providerModule), broker(hostBroker), classes(repository), sink(messageSink) {}

    // The interface of a provider. Throws Failure when its factory yields none.
    template <class Interface>
    Interface& Get(const std::string& provider);

    // Calls the cleanup of every interface. A module that refuses to be unloaded stays in the
    // process.
    void CleanUp();

private:
    template <class Interface>
    struct Slot {
        Interface* made = nullptr;
        bool isBeingMade = false;
    };

    template <class Interface>
    using Slots = std::map<std::string, Slot<Interface>>;  // by provider name

    template <class Interface>
    Interface* MakeInterface(const std::string& provider) const;

    template <class Interface>
    void CleanUpAll(const Slots<Interface>& all);

    Module& module;
    const CMPIBroker& broker;
    const ClassRepository& classes;
    const MessageSink& sink;

    // Guards the slots. A factory may ask other providers on its own thread.
    std::recursive_mutex mutex;
    std::tuple<Slots<CMPIInstanceMI>, Slots<CMPIMethodMI>, Slots<CMPIAssociationMI>> slots;
};

}  // namespace host
