// The diagnostic service instances of all registered tests, as association endpoints.
#pragma once

#include <providers/EndpointList.h>
#include <schema/QUVSG_BMCI2C_DiagnosticService.h>

// Replaces the list's entries by one service per registered test, in registration order.
void FillFromRegistry(EndpointList<QUVSG_BMCI2C_DiagnosticService>& services);
