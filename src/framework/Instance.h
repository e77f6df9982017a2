// The header that every CIM instance begins with, and what is done with whole instances.
//
// Instances are counted. create and clone give an instance with a count of one; a reference
// property holds one count of the instance it points to, so that many associations can share
// one endpoint, which is freed once.
#pragma once

#include <framework/Meta_Class.h>
#include <framework/String.h>

#include <atomic>
#include <cstdint>

namespace cimple {

class Instance {
public:
    const Meta_Class* meta_class = nullptr;
    String name_space;  // empty: that of the request
    std::atomic<std::uint32_t> count{1};
};

// A new instance with a count of one and every property null. Default values of the class are
// never filled in: `defaults` must be false.
Instance* create(const Meta_Class* meta_class, bool defaults);

// A deep copy with a count of one; references are copied deeply, too.
Instance* clone(const Instance* instance);

// Frees an instance that create or clone made and nobody else holds: drops the caller's count.
void destroy(Instance* instance);

// Takes and drops one count; null is allowed and does nothing.
void ref(const Instance* instance);
void unref(const Instance* instance);

// A new instance of a generated class.
template <class T>
T* create() {
    return static_cast<T*>(create(&T::static_meta_class, false));
}

// The instance as a T when it is of that class or of a subclass, else null. No count is taken.
template <class T>
T* cast(Instance* instance) {
    const bool matches =
        instance != nullptr && is_subclass(&T::static_meta_class, instance->meta_class);
    return matches ? static_cast<T*>(instance) : nullptr;
}

// How many instances exist in this process now: for leak tests.
std::uint64_t instance_count();

}  // namespace cimple
