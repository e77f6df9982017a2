// When two instances stand for the same CIM object.
#pragma once

#include <framework/Instance.h>

namespace cimple {

// True when class and keys are the same, and the namespaces where both have one. A key that is null
// is the same as an empty text: servers write a null key as empty text. Instances without any key
// value are never the same.
bool is_same_object(const Instance& a, const Instance& b);

}  // namespace cimple
