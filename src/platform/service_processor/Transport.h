// The transport to one controller.
#pragma once

#include <platform/service_processor/IpmiMessage.h>
#include <platform/service_processor/TimeAllowance.h>
#include <platform/service_processor/TransportError.h>

#include <string>

namespace platform {

class Transport {
public:
    Transport() = default;
    Transport(const Transport&) = delete;
    Transport& operator=(const Transport&) = delete;
    virtual ~Transport() = default;

    // Sends the request and returns the controller's answer, whatever its completion code. Nothing
    // stays open afterwards. Throws TransportError when no answer came in the time allowed.
    virtual IpmiAnswer Send(const IpmiRequest& request, TimeAllowance allowance) = 0;

    // A short description of the transport for log lines: "inband /dev/ipmi0", "lan 192.0.2.1:623".
    virtual std::string Describe() const = 0;
};

}  // namespace platform
