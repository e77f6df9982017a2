// The one place where exceptions become CMPI statuses: every entry of an interface passes here.
#pragma once

#include <cmpi/cmpi.h>

namespace cimple {

// The operation in progress, for error texts.
struct Operation_Name {
    const char* provider;
    const char* operation;
    const char* method = "";  // of a method call
};

// The CMPI status of the exception in flight, with a text that names provider and operation. The
// text is left out when the broker can make none.
CMPIStatus status_of_exception(const CMPIBroker* broker, const Operation_Name& name) noexcept;

// Runs the body and turns an exception into a status.
template <class Body>
CMPIStatus guarded(const CMPIBroker* broker, const Operation_Name& name, Body body) noexcept {
    try {
        body();
        return {CMPI_RC_OK, nullptr};
    } catch (...) {
        return status_of_exception(broker, name);
    }
}

}  // namespace cimple
