// The library calls of name resolution. Tests link functions that simulate a resolver.
#pragma once

#include <netdb.h>

#include <ctime>

namespace platform::resolver_calls {

int Start(gaicb* request);                             // getaddrinfo_a, without waiting
int Wait(const gaicb* request, const timespec& time);  // gai_suspend
int State(gaicb* request);                             // gai_error

}  // namespace platform::resolver_calls
