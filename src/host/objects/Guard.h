// The boundary between the host's code and a provider's: no exception crosses it.
#pragma once

#include <host/Status.h>

#include <type_traits>

namespace host {

// Sets a status that a provider passed, which may be null. The text becomes an object of the
// current request; without a request there is none.
void Report(CMPIStatus* rc, const Status& status) noexcept;

// Turns the current exception into a status and returns its code.
CMPIrc ReportException(CMPIStatus* rc) noexcept;

// What a table entry returns when it failed: null, zero, or data whose state says why.
template <class Result>
Result Nothing(CMPIrc code) {
    if constexpr (std::is_same_v<Result, CMPIData>) {
        const bool isMissing = code == CMPI_RC_ERR_NO_SUCH_PROPERTY ||
                               code == CMPI_RC_ERR_NOT_FOUND || code == CMPI_RC_NO_MORE_ELEMENTS;
        return {CMPI_null, isMissing ? CMPI_notFound : CMPI_badValue, {}};
    } else {
        return Result{};
    }
}

// Runs the body of a table entry that has a result and sets its status.
template <class Body>
std::invoke_result_t<Body> Guard(CMPIStatus* rc, const Body& body) noexcept {
    Report(rc, {});
    try {
        return body();
    } catch (...) {
        return Nothing<std::invoke_result_t<Body>>(ReportException(rc));
    }
}

// Runs the body of a table entry that returns its status.
template <class Body>
CMPIStatus GuardStatus(const Body& body) noexcept {
    CMPIStatus status{CMPI_RC_OK, nullptr};
    try {
        body();
    } catch (...) {
        ReportException(&status);
    }
    return status;
}

// A text argument that must not be null; `what` names it in the error.
const char* Required(const char* text, const char* what);

}  // namespace host
