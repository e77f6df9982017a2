// A controller reached over the network: RMCP+ (IPMI 2.0), or IPMI 1.5 with MD5.
#pragma once

#include <platform/service_processor/Transport.h>
#include <platform/settings/Settings.h>

namespace platform {

class LanTransport final : public Transport {
public:
    explicit LanTransport(ControllerSettings controllerSettings);

    // Opens a session, sends and closes. Another session follows
    // - once, when the controller fell silent after it had answered something, or lost track of the
    //   session. It takes no more than a second longer than the first one (or than the time limit),
    //   so a controller that falls silent at once is given up after twice the limit and a second;
    // - after a pause, as long as the controller has no session free.
    IpmiAnswer Send(const IpmiRequest& request, TimeAllowance allowance) override;

    std::string Describe() const override;

private:
    ControllerSettings controller;
};

}  // namespace platform
