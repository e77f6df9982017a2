// A CIM server with scripted up-calls. Its tables may be changed at will.
#pragma once

#include <cmpi/cmpi.h>

#include <functional>

#include "Fake_Objects.h"

namespace fake {

class Broker : public CMPIBroker {
public:
    Broker();
    Broker(const Broker&) = delete;
    Broker& operator=(const Broker&) = delete;

    Arena arena;

    // Answers the up-call that enumerates a class.
    std::function<CMPIEnumeration*(const Path& classPath, CMPIStatus* status)> onEnumerate;
    const CMPIContext* upcallContext = nullptr;  // that of the last up-call

    CMPIBrokerFT services{};
    CMPIBrokerEncFT factories{};
};

}  // namespace fake
