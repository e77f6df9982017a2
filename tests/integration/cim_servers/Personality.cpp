#include "Personality.h"

#include <dlfcn.h>

#include <ostream>

const Personality kSfcb = {
    .name = "Sfcb",
    .loadFlags = RTLD_NOW | RTLD_GLOBAL,
    .brokerVersion = 0,
    .tableVersion = 1,
    .hasMemoryTable = true,
    .makesInterfacesAtOnce = true,
    .asksOnAnotherThread = false,
    .sendsUnknownProperties = true,
    .nameSpace = "root/quvsd",
    .integerType = CMPI_sint64,
    .keyState = CMPI_keyValue,
};

const Personality kOpenPegasus = {
    .name = "OpenPegasus",
    .loadFlags = RTLD_LAZY | RTLD_GLOBAL,
    .brokerVersion = CMPIVersion200,
    .tableVersion = CMPIVersion200,
    .hasMemoryTable = false,
    .makesInterfacesAtOnce = false,
    .asksOnAnotherThread = true,
    .sendsUnknownProperties = false,
    .nameSpace = "root/QUVSD",
    .integerType = CMPI_uint64,
    .keyState = CMPI_goodValue,
};

std::ostream& operator<<(std::ostream& out, const Personality& personality) {
    return out << personality.name;
}
