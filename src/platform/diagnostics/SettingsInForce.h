// The settings; logs if they cannot be read.
#pragma once

#include <platform/settings/Settings.h>

#include <memory>

namespace platform {

// CurrentSettings(); a problem with them is logged at severity 0 as "Settings: <problem>", once
// for every new text.
std::shared_ptr<const Settings> SettingsInForce();

}  // namespace platform
