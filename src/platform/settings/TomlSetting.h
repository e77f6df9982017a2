// A key of a TOML table as a setting.
#pragma once

#include <platform/settings/Override.h>
#include <platform/settings/TomlTable.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

// Reads a key with `getter`, which is called with table, key and limits, and applies its value,
// when there is one, to the setting.
template <class T, class Getter, class... Limits>
void Apply(TomlTable& table, std::string_view key, Setting<T>& setting, const Getter& getter,
           const Limits&... limits) {
    Override(setting, std::invoke(getter, table, key, limits...), Origin::File, table.Place(key));
}

// The path that a key holds; a relative one starts at `folder`.
inline std::optional<std::string> ReadPath(TomlTable& table, std::string_view key,
                                           const std::filesystem::path& folder) {
    const std::optional<std::string> path = table.NonEmptyText(key);
    return path ? std::optional<std::string>(folder / *path) : std::nullopt;
}

}  // namespace platform
