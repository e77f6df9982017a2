// Values in the types that a class declares.
#pragma once

#include <host/Value.h>
#include <mof/Model.h>

#include <optional>

namespace host {

// The CMPI type code of a property, parameter or method.
CMPIType TypeOf(const mof::TypeName& type);

// The value in that type: as it is, as the same number in another width, or read from its text
// (numbers, booleans, date-times, object paths). Nothing when the type cannot hold it.
std::optional<Value> Typed(const Value& value, CMPIType type);

// A MOF literal in that type; NULL when the type cannot hold it.
Value FromLiteral(const mof::Literal& literal, CMPIType type);

// A MOF literal in the type that it shows.
Value FromLiteral(const mof::Literal& literal);

}  // namespace host
