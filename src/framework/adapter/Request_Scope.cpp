#include <framework/adapter/Request_Error.h>
#include <framework/adapter/Request_Scope.h>

namespace cimple {

namespace {

constinit thread_local const Request_Scope* currentScope = nullptr;

}  // namespace

Request_Scope::Request_Scope(const void* handler, const CMPIBroker* broker,
                             const CMPIContext* context)
    : provider(handler), requestBroker(broker), requestContext(context), outer(currentScope) {
    for (const Request_Scope* scope = outer; scope != nullptr; scope = scope->outer) {
        if (scope->provider != handler) continue;
        throw Request_Error(CMPI_RC_ERR_FAILED,
                            "the provider is still handling a request of the same thread.");
    }
    currentScope = this;
}

Request_Scope::~Request_Scope() { currentScope = outer; }

const Request_Scope* Request_Scope::current() { return currentScope; }

}  // namespace cimple
