// CIM values, object paths and instances as plain data: what the embedded host takes and gives.
#pragma once

#include <cmpi/cmpi.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace host {

struct ObjectPath;
struct Instance;

// A typed value. `type` is a CMPI type code (an array's has CMPI_ARRAY set); a date-time is its CIM
// text; integers are kept signed or unsigned as their type says.
struct Value {
    using Data = std::variant<std::monostate,  // NULL
                              bool, std::int64_t, std::uint64_t, double, std::string,
                              std::shared_ptr<const ObjectPath>, std::shared_ptr<const Instance>,
                              std::vector<Value>>;

    CMPIType type = CMPI_null;
    Data data;

    bool IsNull() const { return std::holds_alternative<std::monostate>(data); }
};

struct NamedValue {
    std::string name;
    Value value;
};

// Finds by name in any letter case; null when there is none.
const Value* FindValue(const std::vector<NamedValue>& values, const std::string& name);

struct ObjectPath {
    std::string nameSpace;
    std::string className;
    std::vector<NamedValue> keys;

    // "root/QUVSD:Class.Key=\"value\",Key2=3"; a reference's path is a quoted value.
    std::string ToString() const;
};

// The path that ToString() wrote; nothing when the text is none. A value is a string when it is
// quoted (a reference's path, too), else a boolean or a 64-bit integer.
std::optional<ObjectPath> ParseObjectPath(const std::string& text);

struct Instance {
    ObjectPath path;
    std::vector<NamedValue> properties;  // in class order

    // Differences between provider and class, for checks of a module against its schema: failed
    // assignments, a sentence each, and the properties that were not even set to NULL.
    std::vector<std::string> refused = {};
    std::vector<std::string> untouched = {};
};

}  // namespace host
