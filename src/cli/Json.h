// CIM values as JSON.
#pragma once

#include <host/Value.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace cli {

// Ordered as the class orders its properties.
using Json = nlohmann::ordered_json;

// Of the objects that name it. Grows when a script that reads them would have to change.
inline constexpr int kFormatVersion = 1;

// NULL is null, a date-time its CIM text, a reference its object path, an embedded instance an
// object like those of enumerations; integers keep all their digits.
Json ToJson(const host::Value& value);

// Name to value.
Json ToJson(const std::vector<host::NamedValue>& values);

// An object with "class", "path" and "properties".
Json ToJson(const host::Instance& instance);

// Indented, ending in a line break. Bytes that are not UTF-8 become U+FFFD.
std::string JsonText(const Json& json);

}  // namespace cli
