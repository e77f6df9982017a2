// What CIM servers do differently to a provider.
#pragma once

#include <cmpi/cmpi.h>

#include <iosfwd>

struct Personality {
    const char* name;
    int loadFlags;  // of dlopen
    CMPIVersion brokerVersion;
    CMPIVersion tableVersion;  // of the broker's and all objects' function tables
    bool hasMemoryTable;
    bool makesInterfacesAtOnce;   // all of them at the start; else each at its first request
    bool asksOnAnotherThread;     // an up-call; else on the thread of the request
    bool sendsUnknownProperties;  // that the class lacks; else drops them
    const char* nameSpace;        // as its paths spell it
    CMPIType integerType;         // of every integer that a client sends
    CMPIValueState keyState;
};

extern const Personality kSfcb;
extern const Personality kOpenPegasus;

// For the names of tests.
std::ostream& operator<<(std::ostream& out, const Personality& personality);
