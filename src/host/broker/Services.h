// The data behind a broker's handle.
#pragma once

#include <cmpi/cmpi.h>
#include <host/requests/InstanceRequests.h>

namespace host {

struct Services {
    const ClassRepository& classes;
    InstanceRequests& instances;
};

// The services of a broker. Throws Failure for an invalid broker.
const Services& ServicesOf(const CMPIBroker* broker);

// The broker's function tables: up-calls; factories.
extern const CMPIBrokerFT kUpCalls;
extern const CMPIBrokerEncFT kFactories;

}  // namespace host
