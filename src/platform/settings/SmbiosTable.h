// Where one of SMBIOS's texts is read, as the settings file says it.
#pragma once

#include <platform/settings/Settings.h>
#include <platform/settings/TomlTable.h>

#include <filesystem>
#include <string_view>

namespace platform {

// Applies the table that a key of [machine] holds, if it is there. A relative path starts at
// `folder`. Throws SettingsError.
void ReadSmbiosSource(TomlTable& machine, std::string_view key, const std::filesystem::path& folder,
                      SmbiosSource& source);

}  // namespace platform
