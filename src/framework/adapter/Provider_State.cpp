#include <framework/adapter/Provider_State.h>
#include <framework/adapter/cmpi_adapter.h>
#include <framework/adapter/interface_tables.h>

#include <algorithm>
#include <new>
#include <utility>

namespace cimple {

namespace {

// A static data block: all zero until the state is made.
struct Block {
    Provider_State* state;
    alignas(Provider_State) unsigned char memory[sizeof(Provider_State)];
};
static_assert(sizeof(Block) <= kStaticDataSize);

constinit std::mutex blockLock;  // guards the state pointers of all blocks

}  // namespace

void Provider::Destroy::operator()(void* object) const {
    registration->proc(registration, OPERATION_DESTROY_PROVIDER, object, nullptr, nullptr, nullptr,
                       nullptr, nullptr, nullptr, nullptr);
}

int Provider::call(Operation operation, const Untyped_Arguments& arguments) {
    const auto& values = arguments.values;
    return registration.proc(&registration, operation, object.get(), values[0], values[1],
                             values[2], values[3], values[4], values[5], values[6]);
}

void Provider::load() {
    if (object != nullptr) return;
    void* created = nullptr;
    check_status(registration.proc(&registration, OPERATION_CREATE_PROVIDER, &created, &stateless,
                                   nullptr, nullptr, nullptr, nullptr, nullptr, nullptr));
    object.reset(created);
    try {
        check_status(call(OPERATION_LOAD));
    } catch (...) {
        object.reset();
        throw;
    }
}

void Provider::unload() {
    if (object == nullptr) return;
    const auto destroy = [this](Provider*) { object.reset(); };
    const std::unique_ptr<Provider, decltype(destroy)> atTheEnd(this, destroy);
    check_status(call(OPERATION_UNLOAD));
}

Provider_State& Provider_State::in(void* staticData, const Registration& registration,
                                   const char* providerName) {
    auto* const block = static_cast<Block*>(staticData);
    const std::lock_guard guard(blockLock);
    if (block->state == nullptr) {
        block->state = new (block->memory) Provider_State(registration, providerName);
    }
    return *block->state;
}

Provider_State::Provider_State(const Registration& registration, const char* providerName)
    : name(providerName),
      metaClass(*registration.meta_class),
      provider(registration),
      instanceTable(instance_table(providerName)),
      methodTable(method_table(providerName)),
      associationTable(association_table(providerName)),
      instanceInterface{this, &instanceTable},
      methodInterface{this, &methodTable},
      associationInterface{this, &associationTable} {}

CMPIStatus Provider_State::clean_up(const CMPIContext* context, bool terminating) noexcept {
    if (!terminating) return {CMPI_RC_NEVER_UNLOAD, nullptr};
    return in_scope(context, {name, "cleanup"}, [this](const CMPIBroker&) {
        const std::unique_lock alone(lock);
        provider.unload();
    });
}

}  // namespace cimple
