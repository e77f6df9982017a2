// A controller reached over the network: RMCP+ (IPMI 2.0), or IPMI 1.5 with MD5.
#pragma once

#include <platform/service_processor/Transport.h>
#include <platform/settings/Settings.h>

namespace platform {

class LanTransport final : public Transport {
public:
    explicit LanTransport(ControllerSettings controllerSettings);

    // Opens a session, sends and closes, more than once where that helps (LanSchedule.h). A
    // controller that names no privilege level in its answer to the opening is asked again with
    // FreeIPMI's workaround "opensesspriv". Ends within the time allowed and within kLanTotal, but
    // - with a controller that is slow on purpose, as LanSchedule.h tells;
    // - when the machine's clock is set back meanwhile: FreeIPMI waits by it.
    IpmiAnswer Send(const IpmiRequest& request, TimeAllowance allowance) override;

    std::string Describe() const override;

private:
    ControllerSettings controller;
};

}  // namespace platform
