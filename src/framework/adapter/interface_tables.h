// The function tables of a provider's CMPI interfaces; each `hdl` of an interface points to the
// Provider_State.
#pragma once

#include <cmpi/cmpi.h>

namespace cimple {

// The versions that the tables state: interfaces of CMPI 1.0.
inline constexpr CMPIVersion kTableVersion = CMPIVersion100;

CMPIInstanceMIFT instance_table(const char* providerName);
CMPIMethodMIFT method_table(const char* providerName);
CMPIAssociationMIFT association_table(const char* providerName);

}  // namespace cimple
