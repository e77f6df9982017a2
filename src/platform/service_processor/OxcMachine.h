// Whether the machine's controllers are of the OXC family.
#pragma once

#include <platform/service_processor/DeviceId.h>
#include <platform/settings/Settings.h>

#include <chrono>
#include <vector>

namespace platform {

bool IsInOxcList(const std::vector<ControllerProduct>& list, const DeviceId& id);

// As the settings say it. Where they list products, the first controller of the machine is asked
// who it is, until it has answered once in this process; one that does not answer is not of the
// family, and the log tells why.
bool IsOxcMachine(const OxcFamily& family, const ControllerSettings& firstController,
                  std::chrono::milliseconds timeLimit);

}  // namespace platform
