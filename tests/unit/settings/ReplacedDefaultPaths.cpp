#include "ReplacedDefaultPaths.h"

#include <platform/settings/DefaultPaths.h>

namespace platform {

std::string DefaultSettingsFile() { return replacedSettingsFile; }

std::string DefaultRoot() { return kReplacedRoot; }

}  // namespace platform
