// Which controllers are of the OXC family, as the settings file says it.
#pragma once

#include <platform/settings/Settings.h>
#include <platform/settings/TomlTable.h>

#include <optional>

namespace platform {

// Reads the key `oxc`: true, false, or an array of tables with `manufacturer` and `product`. Throws
// SettingsError.
std::optional<OxcFamily> ReadOxcFamily(TomlTable& table);

}  // namespace platform
