#include <framework/Instance_Enumerator.h>

#include <utility>

namespace cimple {

Instance* Instance_Enumerator::operator()() const {
    if (position >= instances.size()) return nullptr;
    Instance* const instance = instances[position].get();
    ref(instance);
    return instance;
}

void Instance_Enumerator::assign(std::vector<Instance_Ptr> newInstances) {
    instances = std::move(newInstances);
    position = 0;
}

}  // namespace cimple
