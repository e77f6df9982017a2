// The named values of a property, from its ValueMap and Values qualifiers.
#pragma once

#include <mof/Model.h>

#include <string>
#include <vector>

namespace mof {

struct NamedValue {
    std::string name;   // as a C++ identifier: "EnabledButOffline"
    std::string value;  // as MOF writes it: "6"
};

// In the order of the qualifiers; ranges ("11..32767") have no name. Empty for a property without
// both qualifiers. Throws std::runtime_error when they do not match or a name is not an identifier.
std::vector<NamedValue> NamedValues(const Property& property);

}  // namespace mof
