#include <platform/settings/DefaultPaths.h>

namespace platform {

std::string DefaultSettingsFile() { return "/etc/bmci2c/platform.toml"; }

std::string DefaultRoot() { return BMCI2C_DATA_ROOT; }

}  // namespace platform
