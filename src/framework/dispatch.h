// Turns the framework's untyped calls into calls on a provider object: the body of every dispatch
// procedure (a Provider_Proc).
//
// Arguments by operation; arg0 is the provider object where nothing else is said:
//
//     get meta class        arg0 slot for the const Meta_Class*
//     create provider       arg0 slot for the provider, arg1 null or a bool that becomes true when
//     the
//                           provider has no data members, so that requests may use it in parallel
//     destroy provider      null is allowed and does nothing
//     get instance          arg1 model, arg2 slot for the instance
//     enum instances        arg1 model, arg2 callback, arg3 client data
//     create instance       arg1 instance
//     delete instance       arg1 instance
//     modify instance       arg1 model, arg2 instance
//     invoke method         arg1 target instance, arg2 record of the method's parameters
//     get repository        arg0 slot for the const Meta_Repository*
//     enum associator names,
//     enum associators      arg1 source instance, arg2 result class, arg3 role, arg4 result role
//                           (const String*), arg5 callback, arg6 client data
//     enum references       arg1 source instance, arg2 model, arg3 role, arg4 callback,
//                           arg5 client data
//
// An enumeration ends with a call of the callback with null and the status. That call is left out
// when an association provider does not support the operation, so that the client is told so
// instead of getting an empty result.
#pragma once

#include <framework/Association_Handlers.h>
#include <framework/Enum_Instances_Handler.h>
#include <framework/Registration.h>
#include <framework/Status.h>
#include <framework/String.h>
#include <strings.h>

#include <cstring>
#include <optional>
#include <type_traits>

namespace cimple {

namespace dispatching {

using Arguments = void* const*;

// Slots are pointers to pointers of whatever class; their bytes are copied.
template <class T>
T* read_slot(const void* slot) {
    T* value;
    std::memcpy(&value, slot, sizeof value);
    return value;
}
template <class T>
void write_slot(void* slot, T* value) {
    std::memcpy(slot, &value, sizeof value);
}

inline Enum_Callback callback_of(void* argument) {
    return reinterpret_cast<Enum_Callback>(argument);
}

inline const String& text_of(const void* argument) { return *static_cast<const String*>(argument); }

template <class Provider, class Class>
int get_instance(Provider* provider, Arguments args) {
    auto* instance = read_slot<Class>(args[2]);
    const int status = provider->get_instance(static_cast<const Class*>(args[1]), instance);
    write_slot(args[2], instance);
    return status;
}

// Runs an enumeration with a handler and ends it, but for the status `unreported`.
template <class Handler, class Enumerate>
int enumerate(void* callback, void* clientData, std::optional<int> unreported,
              Enumerate enumerateWith) {
    Handler handler(callback_of(callback), clientData);
    const int status = enumerateWith(&handler);
    if (status != unreported) callback_of(callback)(nullptr, status, clientData);
    return status;
}

template <class Provider, class Class>
int enum_instances(Provider* provider, Arguments args) {
    return enumerate<Enum_Instances_Handler<Class>>(
        args[2], args[3], std::nullopt, [&](auto* handler) {
            return provider->enum_instances(static_cast<const Class*>(args[1]), handler);
        });
}

// Calls the method that the record is named after, in any letter case.
template <class Provider, class Class, class... Records>
int invoke_method(Provider* provider, const Class* self, Instance* record,
                  Method_List<Records...>) {
    int status = STATUS_NO_SUCH_OPERATION;
    [[maybe_unused]] const auto invokeIfNamed = [&]<class Record>() {
        if (strcasecmp(record->meta_class->name, Record::static_meta_class.name) != 0) return false;
        status = static_cast<Record*>(record)->invoke(*provider, self);
        return true;
    };
    static_cast<void>((invokeIfNamed.template operator()<Records>() || ...));
    return status;
}

template <class Provider>
int enum_associator_names(Provider* provider, Arguments args) {
    return enumerate<Enum_Associator_Names_Handler<Instance>>(
        args[5], args[6], ENUM_ASSOCIATOR_NAMES_UNSUPPORTED, [&](auto* handler) {
            return provider->enum_associator_names(static_cast<const Instance*>(args[1]),
                                                   text_of(args[2]), text_of(args[3]),
                                                   text_of(args[4]), handler);
        });
}

template <class Provider>
int enum_associators(Provider* provider, Arguments args) {
    return enumerate<Enum_Associators_Handler<Instance>>(
        args[5], args[6], ENUM_ASSOCIATORS_UNSUPPORTED, [&](auto* handler) {
            return provider->enum_associators(static_cast<const Instance*>(args[1]),
                                              text_of(args[2]), text_of(args[3]), text_of(args[4]),
                                              handler);
        });
}

template <class Provider, class Class>
int enum_references(Provider* provider, Arguments args) {
    return enumerate<Enum_References_Handler<Class>>(
        args[4], args[5], ENUM_REFERENCES_UNSUPPORTED, [&](auto* handler) {
            return provider->enum_references(static_cast<const Instance*>(args[1]),
                                             static_cast<const Class*>(args[2]), text_of(args[3]),
                                             handler);
        });
}

// The operations of association classes.
template <class Provider, class Class>
int dispatch_association(int operation, Provider* provider, Arguments args) {
    switch (operation) {
        case OPERATION_ENUM_ASSOCIATOR_NAMES:
            return enum_associator_names(provider, args);
        case OPERATION_ENUM_REFERENCES:
            return enum_references<Provider, Class>(provider, args);
        case OPERATION_ENUM_ASSOCIATORS:
            return enum_associators(provider, args);
        default:
            return STATUS_NO_SUCH_OPERATION;
    }
}

// The operations of every class on a provider object.
template <class Provider, class Class, bool isAssociation>
int dispatch_request(int operation, Provider* provider, Arguments args) {
    switch (operation) {
        case OPERATION_LOAD:
            return provider->load();
        case OPERATION_UNLOAD:
            return provider->unload();
        case OPERATION_GET_INSTANCE:
            return get_instance<Provider, Class>(provider, args);
        case OPERATION_ENUM_INSTANCES:
            return enum_instances<Provider, Class>(provider, args);
        case OPERATION_CREATE_INSTANCE:
            return provider->create_instance(static_cast<Class*>(args[1]));
        case OPERATION_DELETE_INSTANCE:
            return provider->delete_instance(static_cast<const Class*>(args[1]));
        case OPERATION_MODIFY_INSTANCE:
            return provider->modify_instance(static_cast<const Class*>(args[1]),
                                             static_cast<const Class*>(args[2]));
        case OPERATION_INVOKE_METHOD:
            return invoke_method(provider, static_cast<const Class*>(args[1]),
                                 static_cast<Instance*>(args[2]), typename Class::Methods{});
        default:
            if constexpr (isAssociation) {
                return dispatch_association<Provider, Class>(operation, provider, args);
            }
            return STATUS_NO_SUCH_OPERATION;
    }
}

}  // namespace dispatching

// Performs an operation of the provider class Provider, which serves the CIM class Class. An
// operation that does not exist gives -1. Exceptions of the provider pass through.
template <class Provider, class Class, bool isAssociation>
int dispatch(const Registration* /*registration*/, int operation, void* arg0, void* arg1,
             void* arg2, void* arg3, void* arg4, void* arg5, void* arg6, void* arg7) {
    void* const args[] = {arg0, arg1, arg2, arg3, arg4, arg5, arg6, arg7};
    switch (operation) {
        case OPERATION_GET_META_CLASS:
            dispatching::write_slot(arg0, &Class::static_meta_class);
            return STATUS_OK;
        case OPERATION_CREATE_PROVIDER:
            dispatching::write_slot(arg0, new Provider);
            if (arg1 != nullptr) *static_cast<bool*>(arg1) = std::is_empty_v<Provider>;
            return STATUS_OK;
        case OPERATION_DESTROY_PROVIDER:
            delete static_cast<Provider*>(arg0);
            return STATUS_OK;
        case OPERATION_GET_REPOSITORY:
            dispatching::write_slot(arg0, Class::static_meta_class.repository);
            return STATUS_OK;
        default:
            return dispatching::dispatch_request<Provider, Class, isAssociation>(
                operation, static_cast<Provider*>(arg0), args);
    }
}

}  // namespace cimple
