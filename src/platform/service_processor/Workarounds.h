// FreeIPMI's workarounds for controllers that bend the LAN protocols, by the names of its tools.
#pragma once

#include <string>
#include <vector>

namespace platform {

// The flags for ipmi_ctx_open_outofband_2_0 or, for protocol "1.5", ipmi_ctx_open_outofband.
// Throws TransportError when the protocol has no workaround of one of the names.
unsigned int WorkaroundFlags(const std::string& protocol, const std::vector<std::string>& names);

}  // namespace platform
