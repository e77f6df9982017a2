// Precedence between sources of settings.
#pragma once

#include <platform/settings/Settings.h>

#include <optional>
#include <string>
#include <utility>

namespace platform {

// Puts the value, when there is one, instead of what the setting holds; `place` is as in
// Setting.
template <class T, class Value>
void Override(Setting<T>& setting, std::optional<Value> value, Origin origin,
              const std::string& place) {
    if (value) setting = {*std::move(value), origin, place};
}

}  // namespace platform
