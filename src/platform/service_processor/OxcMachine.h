// Whether the machine's controllers are of the OXC family.
#pragma once

#include <platform/diagnostics/Trouble.h>
#include <platform/service_processor/DeviceId.h>
#include <platform/settings/Settings.h>

#include <chrono>
#include <optional>
#include <vector>

namespace platform {

bool IsInOxcList(const std::vector<ControllerProduct>& list, const DeviceId& id);

struct OxcAnswer {
    bool isOxc = false;
    std::optional<Trouble> trouble;  // why it could not be found out; then `isOxc` is false
};

// As the settings say it. If they list products, the machine's first controller gets Get Device ID
// until it has answered once in this process; if it does not answer, another family is assumed, and
// the log says why.
OxcAnswer AskOxcFamily(const OxcFamily& family, const ControllerSettings& firstController,
                       std::chrono::milliseconds timeLimit);

}  // namespace platform
