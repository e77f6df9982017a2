// Turns CMPI values into values of an instance.
#pragma once

#include <cmpi/cmpi.h>
#include <framework/Instance.h>

namespace cimple {

// True when there is no value: servers say so by the state, by the type or by a null pointer.
bool is_null(const CMPIData& data);

// Sets a property to a value that is not null. Integers of any width and sign are taken by value,
// date-times also as text. Returns false, and leaves the property as it is, when the value does
// not fit the property's type.
bool read_property(Instance& instance, const Meta_Feature& feature, const CMPIData& data);

}  // namespace cimple
