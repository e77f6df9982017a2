// The instance interface: enumerates, gets, creates, modifies and deletes instances.
#include <framework/Status.h>
#include <framework/adapter/Delivery.h>
#include <framework/adapter/Instance_Reader.h>
#include <framework/adapter/Provider_State.h>
#include <framework/adapter/Request_Error.h>
#include <framework/adapter/interface_tables.h>
#include <framework/adapter/objects.h>

namespace cimple {

namespace {

// An instance of the provider's class that the client sends.
Instance_Ptr read_own(const Meta_Class& meta_class, const CMPIInstance* source) {
    return read_instance(meta_class.repository, &meta_class, source);
}

CMPIStatus enumerate(CMPIInstanceMI* interface, const CMPIContext* context, const char* operation,
                     const CMPIResult* result, const CMPIObjectPath* classPath, Delivery::Form form,
                     Property_List properties) {
    Provider_State& state = state_of(interface);
    return state.handle(context, operation, [&](Provider& provider, const CMPIBroker& broker) {
        const Instance_Ptr model = read_target(state.meta_class(), classPath);
        const Instance_Writer writer(broker, name_space_of(classPath));
        Delivery delivery(writer, result, form, properties);
        const int status =
            provider.call(OPERATION_ENUM_INSTANCES, model.get(), &Delivery::take, &delivery);
        delivery.check();
        check_status(status);
    });
}

CMPIStatus enumerate_instance_names(CMPIInstanceMI* interface, const CMPIContext* context,
                                    const CMPIResult* result, const CMPIObjectPath* classPath) {
    return enumerate(interface, context, "enumerateInstanceNames", result, classPath,
                     Delivery::Form::paths, nullptr);
}

CMPIStatus enumerate_instances(CMPIInstanceMI* interface, const CMPIContext* context,
                               const CMPIResult* result, const CMPIObjectPath* classPath,
                               const char** properties) {
    return enumerate(interface, context, "enumerateInstances", result, classPath,
                     Delivery::Form::instances, properties);
}

CMPIStatus get_instance(CMPIInstanceMI* interface, const CMPIContext* context,
                        const CMPIResult* result, const CMPIObjectPath* path,
                        const char** properties) {
    Provider_State& state = state_of(interface);
    return state.handle(context, "getInstance", [&](Provider& provider, const CMPIBroker& broker) {
        const Instance_Ptr model = read_target(state.meta_class(), path);
        Instance* slot = nullptr;
        const int status = provider.call(OPERATION_GET_INSTANCE, model.get(), &slot);
        const Instance_Ptr instance(slot);
        check_status(status);
        if (instance == nullptr) {
            throw Request_Error(CMPI_RC_ERR_NOT_FOUND, "there is no such instance.");
        }
        const Instance_Writer writer(broker, name_space_of(path));
        const Delivery delivery(writer, result, Delivery::Form::instances, properties);
        delivery.put(*instance);
        end_result(result);
    });
}

CMPIStatus create_instance(CMPIInstanceMI* interface, const CMPIContext* context,
                           const CMPIResult* result, const CMPIObjectPath* classPath,
                           const CMPIInstance* source) {
    Provider_State& state = state_of(interface);
    return state.handle(context, "createInstance",
                        [&](Provider& provider, const CMPIBroker& broker) {
                            const Instance_Ptr instance = read_own(state.meta_class(), source);
                            check_status(provider.call(OPERATION_CREATE_INSTANCE, instance.get()));
                            const Instance_Writer writer(broker, name_space_of(classPath));
                            const Delivery delivery(writer, result, Delivery::Form::paths);
                            delivery.put(*instance);
                            end_result(result);
                        });
}

CMPIStatus modify_instance(CMPIInstanceMI* interface, const CMPIContext* context,
                           const CMPIResult* result, const CMPIObjectPath* path,
                           const CMPIInstance* source, const char** /*properties*/) {
    Provider_State& state = state_of(interface);
    return state.handle(context, "modifyInstance", [&](Provider& provider, const CMPIBroker&) {
        const Instance_Ptr model = read_target(state.meta_class(), path);
        const Instance_Ptr instance = read_own(state.meta_class(), source);
        check_status(provider.call(OPERATION_MODIFY_INSTANCE, model.get(), instance.get()));
        end_result(result);
    });
}

CMPIStatus delete_instance(CMPIInstanceMI* interface, const CMPIContext* context,
                           const CMPIResult* result, const CMPIObjectPath* path) {
    Provider_State& state = state_of(interface);
    return state.handle(context, "deleteInstance", [&](Provider& provider, const CMPIBroker&) {
        const Instance_Ptr instance = read_target(state.meta_class(), path);
        check_status(provider.call(OPERATION_DELETE_INSTANCE, instance.get()));
        end_result(result);
    });
}

CMPIStatus exec_query(CMPIInstanceMI* interface, const CMPIContext* context,
                      const CMPIResult* /*result*/, const CMPIObjectPath* /*classPath*/,
                      const char* /*query*/, const char* /*language*/) {
    return state_of(interface).handle(context, "execQuery", [](Provider&, const CMPIBroker&) {
        throw Request_Error(CMPI_RC_ERR_NOT_SUPPORTED, "queries are not supported.");
    });
}

}  // namespace

CMPIInstanceMIFT instance_table(const char* providerName) {
    return {kTableVersion,
            kTableVersion,
            providerName,
            &clean_up<CMPIInstanceMI>,
            &enumerate_instance_names,
            &enumerate_instances,
            &get_instance,
            &create_instance,
            &modify_instance,
            &delete_instance,
            &exec_query};
}

}  // namespace cimple
