#include <base/NoDestructor.h>
#include <platform/service_processor/LiveObjects.h>

#include <mutex>
#include <set>

namespace platform {

namespace {

struct Registry {
    std::mutex lock;  // guards objects
    std::set<const SPLibrary*> objects;
};

Registry& TheRegistry() {
    static base::NoDestructor<Registry> registry;
    return *registry;
}

}  // namespace

void LiveObjects::Add(const SPLibrary* object) {
    Registry& registry = TheRegistry();
    const std::lock_guard guard(registry.lock);
    registry.objects.insert(object);
}

void LiveObjects::Remove(const SPLibrary* object) {
    Registry& registry = TheRegistry();
    const std::lock_guard guard(registry.lock);
    registry.objects.erase(object);
}

std::size_t LiveObjects::Count() {
    Registry& registry = TheRegistry();
    const std::lock_guard guard(registry.lock);
    return registry.objects.size();
}

}  // namespace platform
