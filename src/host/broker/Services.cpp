#include <host/Status.h>
#include <host/broker/Services.h>

namespace host {

const Services& ServicesOf(const CMPIBroker* broker) {
    if (!broker || !broker->hdl)
        throw Failure(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIBroker.");
    return *static_cast<const Services*>(broker->hdl);
}

}  // namespace host
