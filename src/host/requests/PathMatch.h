// When two object paths name the same object.
#pragma once

#include <host/Value.h>

namespace host {

// True when name space, class and keys are the same: names in any letter case, integers by value,
// strings exactly. A path without a name space lies in the other's, and a key that is missing, NULL
// or an empty text is the same, because servers write a NULL key as empty text.
bool SameObject(const ObjectPath& a, const ObjectPath& b);

}  // namespace host
