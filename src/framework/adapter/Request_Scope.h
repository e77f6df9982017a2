// The request that the current thread is handling.
#pragma once

#include <cmpi/cmpi.h>

namespace cimple {

// Makes a request the thread's current one for as long as the scope lasts. A server may call
// another provider of the module on the same thread during an up-call: the outer request is
// restored afterwards.
class Request_Scope {
public:
    // `handler` tells providers apart. Throws Request_Error when the thread is already handling a
    // request of the same provider: waiting for it would deadlock.
    Request_Scope(const void* handler, const CMPIBroker* broker, const CMPIContext* context);
    Request_Scope(const Request_Scope&) = delete;
    Request_Scope& operator=(const Request_Scope&) = delete;
    ~Request_Scope();

    const CMPIBroker* broker() const { return requestBroker; }
    const CMPIContext* context() const { return requestContext; }

    // Null outside of requests.
    static const Request_Scope* current();

private:
    const void* provider;
    const CMPIBroker* requestBroker;
    const CMPIContext* requestContext;
    const Request_Scope* outer;
};

}  // namespace cimple
