// How one controller is reached, from a [[controller]] table or from a simulated machine.
#pragma once

#include <platform/settings/Settings.h>
#include <platform/settings/TomlTable.h>

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>

namespace platform {

// A key that holds a time limit in seconds. Throws SettingsError.
std::optional<int> ReadTimeLimit(TomlTable& table, std::string_view key);

// Reads the [[controller]] table at `position` (from 0). Relative paths start at `folder`. Only
// the keys of the table's transport are allowed. Throws SettingsError.
ControllerSettings ReadController(TomlTable& table, std::size_t position,
                                  const std::filesystem::path& folder);

// The controller that plays the node at `position`, which the profile must have.
ControllerSettings SimulatedController(const SimulatedProfile& profile, std::size_t position);

}  // namespace platform
