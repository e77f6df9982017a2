// The association interface: finds what is associated with an instance, and the associations.
#include <framework/String.h>
#include <framework/adapter/Delivery.h>
#include <framework/adapter/Instance_Reader.h>
#include <framework/adapter/Provider_State.h>
#include <framework/adapter/interface_tables.h>
#include <framework/adapter/objects.h>
#include <strings.h>

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

// True when the class is the named one or derives from it; no name stands for every class.
bool is_of_class(const Meta_Class* meta_class, const char* name) {
    if (name == nullptr || *name == '\0') return true;
    while (meta_class != nullptr && strcasecmp(meta_class->name, name) != 0) {
        meta_class = meta_class->super_class;
    }
    return meta_class != nullptr;
}

// Answers a request for associations of a class. call(provider, source, delivery) asks the
// provider and returns its status; a client that wants another class gets an empty result.
template <class Call>
CMPIStatus answer(const Association_Request& request, const char* operation,
                  const char* associationClass, Call call) {
    Provider_State& state = state_of(request.interface);
    const auto body = [&](Provider& provider, const CMPIBroker& broker) {
        if (!is_of_class(&state.meta_class(), associationClass)) {
            end_result(request.result);
            return;
        }
        const Instance_Ptr source =
            read_reference(state.meta_class().repository, nullptr, request.path);
        const Instance_Writer writer(broker, name_space_of(request.path));
        Delivery delivery(writer, request.result, request.form, request.properties);
        const int status = call(provider, source.get(), &delivery);
        delivery.check();
        check_status(status);
    };
    return state.handle(request.context, operation, body);
}

struct Associator_Filter {
    const char* associationClass;
    const char* resultClass;
    const char* role;
    const char* resultRole;
};

CMPIStatus enumerate_associators(const Association_Request& request, const char* operationName,
                                 Operation operation, const Associator_Filter& filter) {
    return answer(request, operationName, filter.associationClass,
                  [&](Provider& provider, const Instance* source, Delivery* delivery) {
                      const String resultClass = filter.resultClass;
                      const String role = filter.role;
                      const String resultRole = filter.resultRole;
                      return provider.call(operation, source, &resultClass, &role, &resultRole,
                                           &Delivery::take, delivery);
                  });
}

CMPIStatus enumerate_references(const Association_Request& request, const char* operationName,
                                const char* resultClass, const char* roleName) {
    const Meta_Class& metaClass = state_of(request.interface).meta_class();
    return answer(request, operationName, resultClass,
                  [&](Provider& provider, const Instance* source, Delivery* delivery) {
                      const String role = roleName;
                      const Instance_Ptr model(create(&metaClass, false));
                      model->name_space = source->name_space;
                      return provider.call(OPERATION_ENUM_REFERENCES, source, model.get(), &role,
                                           &Delivery::take, delivery);
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
