// The settings file, platform.toml.
#pragma once

#include <platform/settings/Settings.h>

namespace platform {

// Applies the file that BMCI2C_CONFIG names, `chosen` or of the process, which must be there, or
// else the default file, which need not. Throws SettingsError.
void ApplySettingsFile(const Variables& chosen, Settings& settings);

}  // namespace platform
