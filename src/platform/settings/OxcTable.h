// Which controllers are of the OXC family, as the settings file says it.
#pragma once

#include <platform/settings/Settings.h>
#include <platform/settings/TomlTable.h>

#include <optional>
#include <string_view>

namespace platform {

// Reads a key that is true, false, or an array of tables with `manufacturer` and `product`. Throws
// SettingsError.
std::optional<OxcFamily> ReadOxcFamily(TomlTable& table, std::string_view key);

}  // namespace platform
