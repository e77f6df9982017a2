#include <framework/adapter/Instance_Reader.h>
#include <framework/adapter/Request_Error.h>
#include <framework/adapter/Request_Scope.h>
#include <framework/adapter/objects.h>
#include <framework/cimom.h>

namespace cimple {

namespace {

bool can_enumerate(const CMPIBroker* broker) {
    return broker->bft != nullptr && broker->bft->enumerateInstances != nullptr;
}

// The enumeration belongs to the server; it goes with the request.
const CMPIEnumeration* ask_server(const Request_Scope& request, const char* nameSpace,
                                  const char* className) {
    const CMPIBroker* const broker = request.broker();
    if (!can_enumerate(broker)) {
        throw Request_Error(CMPI_RC_ERR_NOT_SUPPORTED, "the CIM server takes no up-calls.");
    }
    const CMPIObjectPath* const path = new_object_path(*broker, nameSpace, className);
    CMPIStatus status{CMPI_RC_OK, nullptr};
    const CMPIEnumeration* const enumeration =
        broker->bft->enumerateInstances(broker, request.context(), path, nullptr, &status);
    if (enumeration == nullptr) status.rc = CMPI_RC_ERR_FAILED;
    check_server(status, "enumerate instances");
    return enumeration;
}

Instance_Ptr read_element(const Meta_Repository* repository, const CMPIData& element) {
    const bool isInstance = element.type == CMPI_instance && element.value.inst != nullptr;
    return isInstance ? read_instance(repository, nullptr, element.value.inst) : nullptr;
}

// The status is the end of the answer, or its premature end.
bool has_next(const CMPIEnumeration* enumeration) {
    CMPIStatus status{CMPI_RC_OK, nullptr};
    const bool hasNext = enumeration->ft->hasNext(enumeration, &status) != 0;
    if (status.rc == CMPI_RC_NO_MORE_ELEMENTS) return false;
    check_server(status, "tell whether there are more instances");
    return hasNext;
}

std::vector<Instance_Ptr> read_all(const Meta_Repository* repository,
                                   const CMPIEnumeration* enumeration) {
    std::vector<Instance_Ptr> instances;
    while (has_next(enumeration)) {
        CMPIStatus status{CMPI_RC_OK, nullptr};
        const CMPIData element = enumeration->ft->getNext(enumeration, &status);
        check_server(status, "tell an instance");
        instances.push_back(read_element(repository, element));
    }
    return instances;
}

}  // namespace

int cimom::enum_instances(const String& nameSpace, const Instance* model,
                          Instance_Enumerator& enumerator) {
    enumerator.assign({});
    const Request_Scope* const request = Request_Scope::current();
    if (request == nullptr) return CMPI_RC_ERR_FAILED;
    try {
        const Meta_Class& metaClass = *model->meta_class;
        enumerator.assign(read_all(metaClass.repository,
                                   ask_server(*request, nameSpace.c_str(), metaClass.name)));
        return CMPI_RC_OK;
    } catch (const Request_Error& error) {
        return error.code;
    }
}

}  // namespace cimple
