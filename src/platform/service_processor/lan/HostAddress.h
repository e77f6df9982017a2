// The address of a controller's host.
//
// If its servers do not respond, a resolver takes half a minute to fail, and more with each server.
// So names are resolved in the background, with a timeout.
#pragma once

#include <platform/service_processor/TimeAllowance.h>

#include <string>

namespace platform {

// In digits: the first address of the name, which is waited for no longer than the allowance's
// limit, or the address that `host` is, an IPv6 one without its brackets. Throws TransportError.
std::string HostAddress(const std::string& host, const TimeAllowance& allowance);

}  // namespace platform
