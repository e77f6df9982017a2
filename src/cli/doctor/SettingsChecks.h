// The checks of the settings, and of the files that they name, by `bmci2c doctor`.
#pragma once

#include <cli/doctor/Check.h>
#include <platform/settings/Settings.h>

#include <string>

namespace cli {

// The settings file (or that it is missing), the profile, the log's file, and the password and k_g
// files of each controller that has one. If the settings cannot be read, only the reason.
Checks CheckSettings(const platform::Settings& settings);

// The name of the check of a controller's "password" or "k_g" file.
std::string SecretFileCheck(const std::string& kind, int controller);

}  // namespace cli
