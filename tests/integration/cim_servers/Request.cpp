#include "Request.h"

namespace {

constinit thread_local Request* currentRequest = nullptr;

CMPIData GetEntry(const CMPIContext* /*context*/, const char* /*name*/, CMPIStatus* status) {
    if (status != nullptr) *status = {CMPI_RC_OK, nullptr};
    return {CMPI_string, CMPI_goodValue, {}};
}

}  // namespace

Context::Context(CMPIVersion tableVersion) : CMPIContext{nullptr, &table} {
    table.ftVersion = tableVersion;
    table.getEntry = GetEntry;
}

Request::Request(const Personality& personality)
    : arena(personality.tableVersion),
      context(personality.tableVersion),
      result(personality.tableVersion) {}

Request* Request::Current() { return currentRequest; }

Request::Scope::Scope(Request& request) : outer(currentRequest) { currentRequest = &request; }

Request::Scope::~Scope() { currentRequest = outer; }
