#include <base/NoDestructor.h>
#include <providers/ParkedInstances.h>

#include <mutex>
#include <vector>

namespace {

struct Parked {
    std::mutex lock;  // guards `instances`
    std::vector<cimple::Instance*> instances;
};

Parked& TheParked() {
    static base::NoDestructor<Parked> parked;
    return *parked;
}

}  // namespace

void ParkInstance(cimple::Instance* instance) {
    if (instance == nullptr) return;
    Parked& parked = TheParked();
    const std::lock_guard guard(parked.lock);
    parked.instances.push_back(instance);
}

std::size_t ParkedInstanceCount() {
    Parked& parked = TheParked();
    const std::lock_guard guard(parked.lock);
    return parked.instances.size();
}
