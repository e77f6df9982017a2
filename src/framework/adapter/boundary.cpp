#include <framework/adapter/Request_Error.h>
#include <framework/adapter/boundary.h>

#include <exception>
#include <string>

namespace cimple {

namespace {

// Without the broker there is no text, but the code still reaches the client.
CMPIString* make_text(const CMPIBroker* broker, const std::string& text) {
    if (broker->eft == nullptr || broker->eft->newString == nullptr) return nullptr;
    CMPIStatus status{CMPI_RC_OK, nullptr};
    return broker->eft->newString(broker, text.c_str(), &status);
}

CMPIStatus failed(const CMPIBroker* broker, const Operation_Name& name, CMPIrc code,
                  const char* sentence) noexcept {
    try {
        const std::string method = *name.method == '\0' ? "" : std::string(" ") + name.method;
        return {code, make_text(broker, std::string(name.provider) + ": " + name.operation +
                                            method + " failed: " + sentence)};
    } catch (...) {  // no memory for the text
        return {code, nullptr};
    }
}

}  // namespace

CMPIStatus status_of_exception(const CMPIBroker* broker, const Operation_Name& name) noexcept {
    try {
        throw;
    } catch (const Request_Error& error) {
        return failed(broker, name, error.code, error.what());
    } catch (const std::exception& error) {
        return failed(broker, name, CMPI_RC_ERR_FAILED, error.what());
    } catch (...) {
        return failed(broker, name, CMPI_RC_ERR_FAILED, "an unknown exception was thrown.");
    }
}

}  // namespace cimple
