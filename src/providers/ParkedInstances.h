// Endpoint instances that association providers have dropped.
//
// An association that was delivered may still be in use when its provider refills its lists, so
// dropped endpoints stay allocated: parked in one process-wide list, where leak checkers see them
// and their growth can be measured.
#pragma once

#include <framework/Instance_Ptr.h>

#include <cstddef>

// Null is ignored.
void ParkInstance(cimple::Instance_Ptr instance);

// The number of instances parked since the process began.
std::size_t ParkedInstanceCount();
