// The names of CIM's data types, and which literals a type can hold.
#pragma once

#include <mof/Model.h>

#include <optional>
#include <string>
#include <string_view>

namespace mof {

// The type that a MOF keyword names, in any letter case. A reference has no keyword.
std::optional<DataType> FindDataType(std::string_view keyword);

// The type as MOF writes it: "uint16", "string[]", "CIM_Job REF".
std::string ToText(const TypeName& type);

// True when a value of that type can be the literal; NULL fits every type.
bool Fits(const Literal& literal, const TypeName& type);

}  // namespace mof
