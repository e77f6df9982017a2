#include <platform/service_processor/lan/ResolverCalls.h>

namespace platform::resolver_calls {

int Start(gaicb* request) { return getaddrinfo_a(GAI_NOWAIT, &request, 1, nullptr); }

int Wait(const gaicb* request, const timespec& time) { return gai_suspend(&request, 1, &time); }

int State(gaicb* request) { return gai_error(request); }

}  // namespace platform::resolver_calls
