#include <base/NoDestructor.h>
#include <debug/Debug.h>
#include <providers/EndpointList.h>

#include <mutex>

namespace {

struct Parked {
    std::mutex lock;  // guards `instances`
    std::vector<cimple::Instance_Ptr> instances;
};

Parked& TheParked() {
    static base::NoDestructor<Parked> parked;
    return *parked;
}

// A copy of the instance when it is of the endpoint class or of a subclass, else null.
cimple::Instance_Ptr CloneEndpoint(const cimple::Meta_Class& endpointClass,
                                   const cimple::Instance& instance) {
    if (!cimple::is_subclass(&endpointClass, instance.meta_class)) return nullptr;
    return cimple::Instance_Ptr(cimple::clone(&instance));
}

}  // namespace

std::vector<cimple::Instance_Ptr> LookUpEndpoints(const cimple::Meta_Class& endpointClass) {
    std::vector<cimple::Instance_Ptr> endpoints;
    cimple::Instance_Enumerator enumerator;
    const cimple::Instance_Ptr model(cimple::create(&endpointClass, false));
    if (cimple::cimom::enum_instances(g_szCIMNameSpace, model.get(), enumerator) != 0) return {};
    for (; enumerator; enumerator++) {
        const cimple::Instance_Ptr current(enumerator());
        if (current == nullptr) break;
        endpoints.push_back(CloneEndpoint(endpointClass, *current));
        if (endpoints.back() != nullptr) xprint(endpoints.back().get());
    }
    return endpoints;
}

void ParkInstance(cimple::Instance_Ptr instance) {
    if (instance == nullptr) return;
    Parked& parked = TheParked();
    const std::lock_guard guard(parked.lock);
    parked.instances.push_back(std::move(instance));
}

std::size_t ParkedInstanceCount() {
    Parked& parked = TheParked();
    const std::lock_guard guard(parked.lock);
    return parked.instances.size();
}
