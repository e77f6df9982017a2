#include <framework/adapter/Request_Error.h>
#include <framework/adapter/objects.h>

namespace cimple {

namespace {

// Calls a factory of the broker with the arguments, the status last.
template <class Object, class... Parameters, class... Arguments>
Object* make(const char* action, Object* (*factory)(const CMPIBroker*, Parameters...),
             const CMPIBroker& broker, Arguments... arguments) {
    CMPIStatus status{CMPI_RC_OK, nullptr};
    Object* const object = factory(&broker, arguments..., &status);
    check_server(status, action);
    if (object == nullptr) check_server({CMPI_RC_ERR_FAILED, nullptr}, action);
    return object;
}

}  // namespace

CMPIString* new_string(const CMPIBroker& broker, const char* text) {
    return make("make a string", broker.eft->newString, broker, text);
}

CMPIDateTime* new_datetime(const CMPIBroker& broker, const Datetime& datetime) {
    return make("make a date-time", broker.eft->newDateTimeFromChars, broker, datetime.c_str());
}

CMPIArray* new_array(const CMPIBroker& broker, std::size_t size, CMPIType type) {
    return make("make an array", broker.eft->newArray, broker, static_cast<CMPICount>(size), type);
}

CMPIObjectPath* new_object_path(const CMPIBroker& broker, const char* nameSpace,
                                const char* className) {
    return make("make an object path", broker.eft->newObjectPath, broker, nameSpace, className);
}

CMPIInstance* new_instance(const CMPIBroker& broker, const CMPIObjectPath* path) {
    return make("make an instance", broker.eft->newInstance, broker, path);
}

const char* text_of(const CMPIString* string) {
    if (string == nullptr) return "";
    CMPIStatus status{CMPI_RC_OK, nullptr};
    const char* const text = string->ft->getCharPtr(string, &status);
    return text == nullptr ? "" : text;
}

const char* class_name_of(const CMPIObjectPath* path) {
    CMPIStatus status{CMPI_RC_OK, nullptr};
    return text_of(path->ft->getClassName(path, &status));
}

const char* name_space_of(const CMPIObjectPath* path) {
    CMPIStatus status{CMPI_RC_OK, nullptr};
    return text_of(path->ft->getNameSpace(path, &status));
}

void check_server(const CMPIStatus& status, const char* action) {
    if (status.rc == CMPI_RC_OK) return;
    const std::string reason = text_of(status.msg);
    throw Request_Error(CMPI_RC_ERR_FAILED, std::string("the CIM server does not ") + action +
                                                " (code " + std::to_string(status.rc) +
                                                (reason.empty() ? "" : ": " + reason) + ").");
}

}  // namespace cimple
