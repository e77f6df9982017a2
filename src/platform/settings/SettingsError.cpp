#include <platform/settings/SettingsError.h>

namespace platform {

SettingsError::SettingsError(const std::string& where, const std::string& found,
                             const std::string& allowed)
    : std::runtime_error(where + ": found " + found + ", allowed " + allowed + ".") {}

}  // namespace platform
