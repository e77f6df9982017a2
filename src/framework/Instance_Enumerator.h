// The answer of the CIM server to an up-call.
#pragma once

#include <framework/Instance_Ptr.h>

#include <cstddef>
#include <vector>

namespace cimple {

// The instances that the CIM server answered with, one at a time.
class Instance_Enumerator {
public:
    Instance_Enumerator() = default;
    Instance_Enumerator(const Instance_Enumerator&) = delete;
    Instance_Enumerator& operator=(const Instance_Enumerator&) = delete;

    // True while there is something to look at.
    explicit operator bool() const { return position < instances.size(); }

    // The current instance with a count for the caller, or null when the server's answer has none
    // at this place.
    Instance* operator()() const;

    // Goes to the next instance.
    void operator++(int) { ++position; }

    // Replaces the instances and goes to the first.
    void assign(std::vector<Instance_Ptr> newInstances);

private:
    std::vector<Instance_Ptr> instances;
    std::size_t position = 0;
};

}  // namespace cimple
