// Instances of the framework as JSON.
#pragma once

#include <cli/Json.h>
#include <framework/Instance.h>

namespace cli {

// Name to value in the order of the class, as ToJson() gives the same properties of an instance
// that came through the module: NULL is null, a date-time its CIM text. References are left out.
Json ToJson(const cimple::Instance& instance);

}  // namespace cli
