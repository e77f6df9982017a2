#include <framework/Instance_Ptr.h>
#include <framework/Status.h>
#include <framework/adapter/Delivery.h>
#include <framework/adapter/objects.h>

namespace cimple {

void end_result(const CMPIResult* result) {
    check_server(result->ft->returnDone(result), "end the result");
}

void Delivery::take(Instance* instance, int status, void* delivery) noexcept {
    auto& self = *static_cast<Delivery*>(delivery);
    const Instance_Ptr owned(instance);
    if (self.failure != nullptr) return;
    try {
        if (owned != nullptr) {
            self.put(*owned);
        } else if (status == STATUS_OK) {
            end_result(self.result);
        }
    } catch (...) {
        self.failure = std::current_exception();
    }
}

void Delivery::check() const {
    if (failure != nullptr) std::rethrow_exception(failure);
}

void Delivery::put(const Instance& instance) const {
    if (form == Form::paths) {
        check_server(result->ft->returnObjectPath(result, writer.path_of(instance)),
                     "take an object path");
    } else {
        check_server(result->ft->returnInstance(result, writer.instance_of(instance, properties)),
                     "take an instance");
    }
}

}  // namespace cimple
