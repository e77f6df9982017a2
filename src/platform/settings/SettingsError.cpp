#include <platform/settings/SettingsError.h>

namespace platform {

SettingsError::SettingsError(const std::string& where, const std::string& found,
                             const std::string& allowed)
    : SettingsError(where + ": found " + found + ", allowed " + allowed + ".",
                    "Correct it; docs/platform-settings.md explains every key.") {}

}  // namespace platform
