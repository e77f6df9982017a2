#include <host/objects/Guard.h>
#include <host/objects/Objects.h>

#include <string>

namespace host {

namespace {

CMPIString* MakeText(const std::string& text) noexcept {
    if (text.empty() || !Arena::IsPresent()) return nullptr;
    try {
        return Make<CMPIString>(text);
    } catch (const std::exception&) {
        return nullptr;  // out of memory: only the code is left
    }
}

}  // namespace

void Report(CMPIStatus* rc, const Status& status) noexcept {
    if (rc) *rc = {status.code, MakeText(status.text)};
}

CMPIrc ReportException(CMPIStatus* rc) noexcept {
    try {
        throw;
    } catch (const Failure& failure) {
        Report(rc, failure.status);
        return failure.status.code;
    } catch (const std::exception& error) {
        Report(rc, {CMPI_RC_ERR_FAILED, error.what()});
        return CMPI_RC_ERR_FAILED;
    }
}

const char* Required(const char* text, const char* what) {
    if (!text) throw Failure(CMPI_RC_ERR_INVALID_PARAMETER, std::string(what) + " is NULL.");
    return text;
}

}  // namespace host
