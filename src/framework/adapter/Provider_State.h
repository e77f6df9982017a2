// The adapter's state of one provider: it lies in the provider's static data block.
#pragma once

#include <framework/Registration.h>
#include <framework/adapter/Request_Scope.h>
#include <framework/adapter/boundary.h>
#include <framework/adapter/provider_status.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <shared_mutex>

namespace cimple {

// The provider object, driven through the dispatch procedure.
class Provider {
public:
    explicit Provider(const Registration& providerRegistration)
        : registration(providerRegistration) {}

    // Creates and loads the provider object unless it exists. When loading fails the object is
    // destroyed again, so that the next request tries anew.
    void load();

    bool is_loaded() const { return object != nullptr; }

    // True when the loaded object has no data members: what its requests share has locks of its
    // own.
    bool is_stateless() const { return stateless; }

    // Unloads and destroys the provider object if it exists, also when unloading fails.
    void unload();

    // Performs an operation on the loaded provider object; the arguments are those behind arg0.
    template <class... Arguments>
    int call(Operation operation, Arguments... arguments) {
        return call(operation, {as_argument(arguments)...});
    }

private:
    static constexpr std::size_t kMaxArguments = 7;
    struct Untyped_Arguments {
        void* values[kMaxArguments];
    };
    struct Destroy {
        const Registration* registration;
        void operator()(void* object) const;
    };
    using Object = std::unique_ptr<void, Destroy>;

    template <class T>
    static void* as_argument(T* argument) {
        if constexpr (std::is_function_v<T>) {
            return reinterpret_cast<void*>(argument);
        } else {
            return const_cast<void*>(static_cast<const void*>(argument));
        }
    }

    int call(Operation operation, const Untyped_Arguments& arguments);

    const Registration& registration;
    Object object{nullptr, Destroy{&registration}};
    bool stateless = false;
};

class Provider_State {
public:
    // The state in a static data block, which is made at the first call for that block.
    static Provider_State& in(void* staticData, const Registration& registration,
                              const char* providerName);

    Provider_State(const Registration& registration, const char* providerName);

    // Runs the body as a request on the loaded provider, with broker and context as the thread's
    // current ones. The body gets the provider and the broker. A provider with data members handles
    // one request at a time. `method` is set for a method call.
    template <class Body>
    CMPIStatus handle(const CMPIContext* context, const char* operation, Body body,
                      const char* method = "") noexcept {
        return in_scope(context, {name, operation, method}, [&](const CMPIBroker& server) {
            for (;;) {
                {
                    const std::shared_lock together(lock);
                    if (provider.is_loaded() && provider.is_stateless())
                        return body(provider, server);
                }
                const std::unique_lock alone(lock);
                provider.load();
                if (!provider.is_stateless()) return body(provider, server);
            }
        });
    }

    // An interface's cleanup. While the server goes on running, what the provider knows must stay:
    // it is never unloaded. At the end the provider object is unloaded and destroyed; the
    // interfaces may be used again after that.
    CMPIStatus clean_up(const CMPIContext* context, bool terminating) noexcept;

    void use_broker(const CMPIBroker* newBroker) { broker = newBroker; }

    const Meta_Class& meta_class() const { return metaClass; }

    CMPIInstanceMI* instance_interface() { return &instanceInterface; }
    CMPIMethodMI* method_interface() { return &methodInterface; }
    CMPIAssociationMI* association_interface() { return &associationInterface; }

private:
    template <class Body>
    CMPIStatus in_scope(const CMPIContext* context, const Operation_Name& operation,
                        Body body) noexcept {
        const CMPIBroker* const currentBroker = broker;
        return guarded(currentBroker, operation, [&] {
            const Request_Scope scope(this, currentBroker, context);
            body(*currentBroker);
        });
    }

    const char* const name;
    const Meta_Class& metaClass;
    std::atomic<const CMPIBroker*> broker = nullptr;
    // Guards `provider`: requests of a loaded, stateless provider share it, everything else is
    // alone.
    std::shared_mutex lock;
    Provider provider;
    const CMPIInstanceMIFT instanceTable;
    const CMPIMethodMIFT methodTable;
    const CMPIAssociationMIFT associationTable;
    CMPIInstanceMI instanceInterface;
    CMPIMethodMI methodInterface;
    CMPIAssociationMI associationInterface;
};

// The state that an interface belongs to.
template <class Interface>
Provider_State& state_of(const Interface* interface) {
    return *static_cast<Provider_State*>(const_cast<void*>(interface->hdl));
}

// The cleanup entry of every interface.
template <class Interface>
CMPIStatus clean_up(Interface* interface, const CMPIContext* context, CMPIBoolean terminating) {
    return state_of(interface).clean_up(context, terminating != 0);
}

}  // namespace cimple
