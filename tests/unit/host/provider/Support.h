// What the providers of the test module share.
#pragma once

#include <cmpi/cmpi.h>

#include <string>

#include "TestControl.h"

#define TEST_EXPORT extern "C" __attribute__((visibility("default")))

namespace test_module {

inline constexpr CMPIStatus kOk{CMPI_RC_OK, nullptr};

// A status with a text.
CMPIStatus Error(const CMPIBroker* broker, CMPIrc code, const char* text);

std::string Text(const CMPIString* text);
std::string ClassName(const CMPIObjectPath* path);
std::string NameSpace(const CMPIObjectPath* path);

// A path with the key Name.
CMPIObjectPath* PathWithName(const CMPIBroker* broker, const std::string& nameSpace,
                             const char* className, const char* name);

// Counts an interface that is made.
void CountMade();

// The cleanup entry of all interfaces: counts, and answers what the test wants.
template <class Interface>
CMPIStatus CleanUp(Interface*, const CMPIContext*, CMPIBoolean terminating);

// Runs the test's own function, if there is one.
void RunProbe(const CMPIBroker* broker, const CMPIContext* context, const CMPIResult* result);

// The answer of every operation that a provider does not have.
template <class... Arguments>
CMPIStatus NotSupported(Arguments...) {
    return {CMPI_RC_ERR_NOT_SUPPORTED, nullptr};
}

}  // namespace test_module
