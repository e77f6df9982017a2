// The method interface: calls extrinsic methods.
#include <framework/Status.h>
#include <framework/adapter/Delivery.h>
#include <framework/adapter/Instance_Reader.h>
#include <framework/adapter/Provider_State.h>
#include <framework/adapter/Request_Error.h>
#include <framework/adapter/cmpi_types.h>
#include <framework/adapter/interface_tables.h>
#include <framework/adapter/objects.h>
#include <framework/visit.h>
#include <strings.h>

namespace cimple {

namespace {

constexpr char kReturnValue[] = "return_value";

[[noreturn]] void refuse_method(const Meta_Class& meta_class, const char* method) {
    throw Request_Error(CMPI_RC_ERR_METHOD_NOT_FOUND, "the class " + std::string(meta_class.name) +
                                                          " has no method \"" + method + "\".");
}

// Passes the record's output parameters and its return value to the client. What has no value is
// left out: servers cannot take references without one.
void return_record(const Instance_Writer& writer, const Instance& record, const CMPIResult* result,
                   const CMPIArgs* out) {
    for (const Meta_Feature& feature : features_of(*record.meta_class)) {
        if ((feature.flags & FEATURE_OUT) == 0 || is_null_at(record, feature)) continue;
        const CMPIValue value = writer.value_of(record, feature);
        if (strcasecmp(feature.name, kReturnValue) == 0) {
            check_server(result->ft->returnData(result, &value, cmpi_type(feature)),
                         "take a return value");
        } else if (out != nullptr) {
            check_server(out->ft->addArg(out, feature.name, &value, cmpi_type(feature)),
                         "take an output argument");
        }
    }
}

CMPIStatus invoke_method(CMPIMethodMI* interface, const CMPIContext* context,
                         const CMPIResult* result, const CMPIObjectPath* path, const char* method,
                         const CMPIArgs* in, CMPIArgs* out) {
    Provider_State& state = state_of(interface);
    const auto body = [&](Provider& provider, const CMPIBroker& broker) {
        const Meta_Class* const description = find_method(state.meta_class(), method);
        if (description == nullptr) refuse_method(state.meta_class(), method);
        const Instance_Ptr self = read_target(state.meta_class(), path);
        const Instance_Ptr record = read_arguments(*description, in);
        const int status = provider.call(OPERATION_INVOKE_METHOD, self.get(), record.get());
        if (status == STATUS_NO_SUCH_OPERATION) refuse_method(state.meta_class(), method);
        check_status(status);
        return_record(Instance_Writer(broker, name_space_of(path)), *record, result, out);
        end_result(result);
    };
    return state.handle(context, "invokeMethod", body, method);
}

}  // namespace

CMPIMethodMIFT method_table(const char* providerName) {
    return {kTableVersion, kTableVersion, providerName, &clean_up<CMPIMethodMI>, &invoke_method};
}

}  // namespace cimple
