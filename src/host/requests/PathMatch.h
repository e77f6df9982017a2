// When two object paths name the same object, and lists in which each object stands once.
#pragma once

#include <host/Value.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace host {

// True when namespace, class and keys are the same: names in any letter case, integers by value,
// strings exactly. A path without a namespace lies in the other's, and a key that is missing, NULL
// or an empty text is the same, because servers write a NULL key as empty text.
bool SameObject(const ObjectPath& a, const ObjectPath& b);

inline const ObjectPath& PathIn(const Instance& instance) { return instance.path; }
inline const ObjectPath& PathIn(const ObjectPath& path) { return path; }

// Adds an instance or path that is not there yet: several links may lead to one object, and a
// provider may enumerate a link several times. Without keys nothing can tell two objects apart, so
// they all count.
template <class Object>
void AddNew(std::vector<Object>& all, Object object) {
    const ObjectPath& path = PathIn(object);
    const bool isPresent =
        !path.keys.empty() && std::any_of(all.begin(), all.end(), [&](const Object& present) {
            return SameObject(PathIn(present), path);
        });
    if (!isPresent) all.push_back(std::move(object));
}

}  // namespace host
