#include "ReplacedDefaultPaths.h"

#include <platform/settings/DefaultPaths.h>

namespace platform {

std::string DefaultSettingsFile() { return replacedSettingsFile; }

std::vector<std::string> DefaultRoots() { return {kReplacedRoot}; }

}  // namespace platform
