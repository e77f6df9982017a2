// How a test controls the test module, beside the host: through functions that the module exports.
#pragma once

#include <cmpi/cmpi.h>

extern "C" {

// Runs in a provider, with the broker and context that the provider got.
using ProbeFunction = void (*)(void* data, const CMPIBroker* broker, const CMPIContext* context,
                               const CMPIResult* result);

// What "Probe" of T_Thing calls, and an enumeration of T_Failing.
using SetProbeFunction = void (*)(ProbeFunction function, void* data);

// What every interface's cleanup answers.
using SetCleanupAnswerFunction = void (*)(CMPIrc code);

// How many interfaces were made, and how many were cleaned up at termination, since the last reset.
struct InterfaceCounts {
    int made;
    int cleanedUp;
};
using TakeInterfaceCountsFunction = InterfaceCounts (*)();

// How often instances of links were enumerated since the last call.
using TakeLinkEnumerationsFunction = int (*)();
}
