// What stands behind a broker's handle.
#pragma once

#include <cmpi/cmpi.h>
#include <host/Message.h>
#include <host/broker/AttachedThreads.h>
#include <host/requests/AssociationRequests.h>
#include <host/requests/InstanceRequests.h>
#include <host/requests/MethodRequests.h>

namespace host {

struct Services {
    const ClassRepository& classes;
    InstanceRequests& instances;
    AssociationRequests& associations;
    MethodRequests& methods;
    AttachedThreads& threads;
    const MessageSink& sink;
};

// The services of a broker. Throws Failure for an invalid broker.
const Services& ServicesOf(const CMPIBroker* broker);

// The broker's function tables: up-calls; factories and helpers.
extern const CMPIBrokerFT kUpCalls;
extern const CMPIBrokerEncFT kFactories;

}  // namespace host
