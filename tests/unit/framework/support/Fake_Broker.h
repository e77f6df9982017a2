// A CIM server with scripted up-calls. Its tables may be changed at will; entries that the adapter
// does not need are null.
#pragma once

#include <cmpi/cmpi.h>

#include <functional>

#include "Fake_Objects.h"

namespace fake {

class Broker : public CMPIBroker {
public:
    Broker();
    virtual ~Broker() = default;
    Broker(const Broker&) = delete;
    Broker& operator=(const Broker&) = delete;

    // Where the objects live that a provider asks for.
    virtual Arena& arena_of_new_objects() { return arena; }

    // The up-call that enumerates a class.
    virtual CMPIEnumeration* enumerate(const CMPIContext* context, const Path& classPath,
                                       CMPIStatus* status);

    Arena arena;

    // Answers the up-call.
    std::function<CMPIEnumeration*(const Path& classPath, CMPIStatus* status)> onEnumerate;
    const CMPIContext* upcallContext = nullptr;  // that of the last up-call

    CMPIBrokerFT services{};
    CMPIBrokerEncFT factories{};
};

}  // namespace fake
