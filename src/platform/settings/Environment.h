// The variables that the settings come from.
#pragma once

#include <platform/settings/Settings.h>

#include <optional>
#include <string>

namespace platform {

// The value of a variable; nothing when it is not set or empty.
std::optional<std::string> EnvironmentText(const char* variable);

// The same, but a chosen variable takes precedence over the one of the process.
std::optional<std::string> VariableText(const Variables& chosen, const char* variable);

// Applies BMCI2C_ROOT, BMCI2C_LOG and BMCI2C_LOG_LEVEL. Throws SettingsError, whose text begins
// with the variable's name.
void ApplyEnvironment(const Variables& chosen, Settings& settings);

// The same, but a variable that is wrong is passed over.
void ApplyValidEnvironment(const Variables& chosen, Settings& settings);

}  // namespace platform
