#include <base/NoDestructor.h>
#include <providers/ParkedInstances.h>

#include <mutex>
#include <utility>
#include <vector>

namespace {

struct Parked {
    std::mutex lock;  // guards `instances`
    std::vector<cimple::Instance_Ptr> instances;
};

Parked& TheParked() {
    static base::NoDestructor<Parked> parked;
    return *parked;
}

}  // namespace

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
