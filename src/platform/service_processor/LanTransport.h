// A controller reached over the network: RMCP+ (IPMI 2.0), or IPMI 1.5 with MD5.
#pragma once

#include <platform/service_processor/Transport.h>
#include <platform/settings/Settings.h>

namespace platform {

class Password;

class LanTransport final : public Transport {
public:
    explicit LanTransport(ControllerSettings controllerSettings);

    // Opens a session, sends and closes. A controller that names no privilege level in its answer
    // to the opening is asked once more with FreeIPMI's workaround "opensesspriv". With a silent
    // controller this ends within kLanTotal, whatever the limit.
    IpmiAnswer Send(const IpmiRequest& request, std::chrono::milliseconds limit) override;

    std::string Describe() const override { return "lan " + Address(); }

private:
    struct Session;

    // "host:port", with brackets around an IPv6 address.
    std::string Address() const;
    bool IsProtocol15() const { return controller.protocol == "1.5"; }
    void CheckSettings() const;
    Password ReadPassword() const;
    bool Open(Session& session, const Password& password, unsigned int workarounds,
              std::chrono::milliseconds silence) const;
    bool NamesNoPrivilege(const Session& session, unsigned int workarounds) const;

    ControllerSettings controller;
};

}  // namespace platform
