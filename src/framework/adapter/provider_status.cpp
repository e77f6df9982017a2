#include <framework/Status.h>
#include <framework/adapter/Request_Error.h>
#include <framework/adapter/provider_status.h>

namespace cimple {

namespace {

bool is_unsupported(int status) {
    switch (status) {
        case STATUS_NO_SUCH_OPERATION:
        case GET_INSTANCE_UNSUPPORTED:
        case CREATE_INSTANCE_UNSUPPORTED:
        case DELETE_INSTANCE_UNSUPPORTED:
        case MODIFY_INSTANCE_UNSUPPORTED:
        case ENUM_ASSOCIATOR_NAMES_UNSUPPORTED:
        case ENUM_REFERENCES_UNSUPPORTED:
        case INVOKE_METHOD_UNSUPPORTED:
        case ENUM_ASSOCIATORS_UNSUPPORTED:
            return true;
        default:
            return false;
    }
}

}  // namespace

void check_status(int status) {
    if (status == STATUS_OK) return;
    const std::string number = " (status " + std::to_string(status) + ").";
    if (is_unsupported(status)) {
        throw Request_Error(CMPI_RC_ERR_NOT_SUPPORTED, "the provider does not support it" + number);
    }
    throw Request_Error(CMPI_RC_ERR_FAILED, "the provider reports a failure" + number);
}

}  // namespace cimple
