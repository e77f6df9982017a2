// A count of an instance that is dropped at the end of its scope.
#pragma once

#include <framework/Instance.h>

#include <memory>

namespace cimple {

struct Unref {
    void operator()(const Instance* instance) const { unref(instance); }
};

using Instance_Ptr = std::unique_ptr<Instance, Unref>;

}  // namespace cimple
