// Default locations.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace platform {

// The settings file that is read, if it is there, when BMCI2C_CONFIG names none.
std::string DefaultSettingsFile();

// The diagnostics root directories in the order in which the catalog is looked for: that of the
// installation around this code's own file (the module's or the program's), if it holds a catalog,
// and the one that the build was configured for.
std::vector<std::string> DefaultRoots();

// The folder "share" with a catalog that is nearest to the file: beside one of the folders above
// it.
std::optional<std::string> RootAround(const std::filesystem::path& file);

}  // namespace platform
