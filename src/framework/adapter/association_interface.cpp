// The association interface: finds what is associated with an instance, and the associations.
#include <framework/Status.h>
#include <framework/String.h>
#include <framework/adapter/Association_Links.h>
#include <framework/adapter/Delivery.h>
#include <framework/adapter/Instance_Reader.h>
#include <framework/adapter/Provider_State.h>
#include <framework/adapter/interface_tables.h>
#include <framework/adapter/objects.h>
#include <framework/derived_associations.h>

namespace cimple {

namespace {

// Where the request comes from and where its answer goes.
struct Association_Request {
    CMPIAssociationMI* interface;
    const CMPIContext* context;
    const CMPIResult* result;
    const CMPIObjectPath* path;  // of the source instance
    Delivery::Form form;
    Property_List properties = nullptr;
};

// The status of an association provider that leaves the answer to its server.
bool is_left_to_server(int status) {
    return status == ENUM_ASSOCIATOR_NAMES_UNSUPPORTED || status == ENUM_ASSOCIATORS_UNSUPPORTED ||
           status == ENUM_REFERENCES_UNSUPPORTED;
}

// Answers a request for associations of a class. call(provider, source, delivery) asks the
// provider and returns its status; a client that wants another class gets an empty result.
// deliver(links, delivery) answers from the links in that role instead, where those are derived.
template <class Call, class Deliver>
CMPIStatus answer(const Association_Request& request, const char* operation,
                  const Association_Filter& filter, Call call, Deliver deliver) {
    Provider_State& state = state_of(request.interface);
    const auto body = [&](Provider& provider, const CMPIBroker& broker) {
        if (!is_of_class(&state.meta_class(), filter.associationClass)) {
            end_result(request.result);
            return;
        }
        const Instance_Ptr source =
            read_reference(state.meta_class().repository, nullptr, request.path);
        const Instance_Writer writer(broker, name_space_of(request.path));
        Delivery delivery(writer, request.result, request.form, request.properties);
        const int status = call(provider, source.get(), &delivery);
        delivery.check();
        if (is_left_to_server(status) && associations_are_derived()) {
            deliver(Association_Links(provider, state.meta_class(), *source, filter.role),
                    delivery);
            end_result(request.result);
            return;
        }
        check_status(status);
    };
    return state.handle(request.context, operation, body);
}

CMPIStatus enumerate_associators(const Association_Request& request, const char* operationName,
                                 Operation operation, const Association_Filter& filter) {
    const auto ask = [&](Provider& provider, const Instance* source, Delivery* delivery) {
        const String resultClass = filter.resultClass;
        const String role = filter.role;
        const String resultRole = filter.resultRole;
        return provider.call(operation, source, &resultClass, &role, &resultRole, &Delivery::take,
                             delivery);
    };
    return answer(request, operationName, filter, ask,
                  [&](const Association_Links& links, const Delivery& delivery) {
                      links.deliver_other_ends(delivery, filter);
                  });
}

CMPIStatus enumerate_references(const Association_Request& request, const char* operationName,
                                const char* resultClass, const char* roleName) {
    const Meta_Class& metaClass = state_of(request.interface).meta_class();
    const auto ask = [&](Provider& provider, const Instance* source, Delivery* delivery) {
        const String role = roleName;
        const Instance_Ptr model(create(&metaClass, false));
        model->name_space = source->name_space;
        return provider.call(OPERATION_ENUM_REFERENCES, source, model.get(), &role, &Delivery::take,
                             delivery);
    };
    return answer(request, operationName, {.associationClass = resultClass, .role = roleName}, ask,
                  [](const Association_Links& links, const Delivery& delivery) {
                      links.deliver_links(delivery);
                  });
}

CMPIStatus associators(CMPIAssociationMI* interface, const CMPIContext* context,
                       const CMPIResult* result, const CMPIObjectPath* path,
                       const char* associationClass, const char* resultClass, const char* role,
                       const char* resultRole, const char** properties) {
    return enumerate_associators(
        {interface, context, result, path, Delivery::Form::instances, properties}, "associators",
        OPERATION_ENUM_ASSOCIATORS, {associationClass, resultClass, role, resultRole});
}

CMPIStatus associator_names(CMPIAssociationMI* interface, const CMPIContext* context,
                            const CMPIResult* result, const CMPIObjectPath* path,
                            const char* associationClass, const char* resultClass, const char* role,
                            const char* resultRole) {
    return enumerate_associators({interface, context, result, path, Delivery::Form::paths},
                                 "associatorNames", OPERATION_ENUM_ASSOCIATOR_NAMES,
                                 {associationClass, resultClass, role, resultRole});
}

CMPIStatus references(CMPIAssociationMI* interface, const CMPIContext* context,
                      const CMPIResult* result, const CMPIObjectPath* path, const char* resultClass,
                      const char* role, const char** properties) {
    return enumerate_references(
        {interface, context, result, path, Delivery::Form::instances, properties}, "references",
        resultClass, role);
}

CMPIStatus reference_names(CMPIAssociationMI* interface, const CMPIContext* context,
                           const CMPIResult* result, const CMPIObjectPath* path,
                           const char* resultClass, const char* role) {
    return enumerate_references({interface, context, result, path, Delivery::Form::paths},
                                "referenceNames", resultClass, role);
}

}  // namespace

CMPIAssociationMIFT association_table(const char* providerName) {
    return {kTableVersion, kTableVersion,     providerName, &clean_up<CMPIAssociationMI>,
            &associators,  &associator_names, &references,  &reference_names};
}

}  // namespace cimple
