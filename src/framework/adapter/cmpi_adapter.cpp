#include <framework/adapter/Provider_State.h>
#include <framework/adapter/cmpi_adapter.h>

namespace cimple {

namespace {

constexpr int kAccepted = 0;
constexpr int kRefused = -1;

// Null for a letter that names no interface.
void* interface_of(Provider_State& state, int kind) {
    switch (kind) {
        case 'I':
            return state.instance_interface();
        case 'M':
            return state.method_interface();
        case 'A':
            return state.association_interface();
        default:
            return nullptr;
    }
}

}  // namespace

int cmpi_adapter(int mark, void* staticData, const Registration* registration,
                 const CMPIBroker* broker, const CMPIContext* /*context*/, const char* providerName,
                 int kind, void** result) {
    if (mark != kAdapterMark || staticData == nullptr || registration == nullptr ||
        broker == nullptr) {
        return kRefused;
    }
    Provider_State& state = Provider_State::in(staticData, *registration, providerName);
    void* const interface = interface_of(state, kind);
    if (interface == nullptr) return kRefused;
    state.use_broker(broker);
    *result = interface;
    return kAccepted;
}

}  // namespace cimple
