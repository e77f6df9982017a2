// The checks of controllers and their devices by `bmci2c doctor`.
#pragma once

#include <cli/doctor/Check.h>
#include <platform/service_processor/Nodes.h>
#include <platform/settings/Settings.h>

#include <string>

namespace cli {

// There are controllers; each device can be read and written; each controller answers Get Device
// ID, which is all that it is asked.
Checks CheckControllers(const platform::Settings& settings,
                        const std::string& deviceFolder = platform::kDeviceFolder);

}  // namespace cli
