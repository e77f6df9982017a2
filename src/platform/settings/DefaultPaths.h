// Where things are when no setting says so.
#pragma once

#include <string>

namespace platform {

// The settings file that is read, if it is there, when BMCI2C_CONFIG names none.
std::string DefaultSettingsFile();

// The diagnostics root directory of this installation.
std::string DefaultRoot();

}  // namespace platform
