// The address of a controller's host.
//
// A resolver whose servers are dead takes half a minute to say so, and more with each server. So a
// name is resolved in the background, and given up when its time is over.
#pragma once

#include <platform/service_processor/TimeAllowance.h>

#include <string>

namespace platform {

// In digits: the first address of the name, which is waited for no longer than the allowance's
// limit, or the address that `host` is, an IPv6 one without its brackets. Throws TransportError.
std::string HostAddress(const std::string& host, const TimeAllowance& allowance);

}  // namespace platform
