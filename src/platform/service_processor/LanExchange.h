// One request over the network, with all the sessions that it takes.
#pragma once

#include <platform/service_processor/IpmiMessage.h>
#include <platform/service_processor/LanSchedule.h>
#include <platform/service_processor/LanTrouble.h>
#include <platform/service_processor/Password.h>
#include <platform/settings/Settings.h>

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

// "host:port", with brackets around an IPv6 address.
std::string LanAddress(const std::string& host, std::uint16_t port);

class LanExchange {
public:
    // `controllerSettings` must outlive the object. Throws TransportError when the settings cannot
    // be used or the password cannot be read.
    LanExchange(const ControllerSettings& controllerSettings, TimeAllowance timeAllowance);

    // A signal that sets the stop flag must interrupt system calls of this thread, for FreeIPMI
    // does not look at the flag. Throws TransportError.
    IpmiAnswer Send(const IpmiRequest& request);

private:
    class Session;

    // What FreeIPMI said of a failure.
    struct Failure {
        int error;  // IPMI_ERR_...
        std::string text;
        bool hasOpened;  // the command failed, not the opening
    };

    std::optional<LanSession> AfterFailedOpening(const Failure& failure, const LanSession& last);
    void RememberSilence(const Failure& failure, const LanSession& last);
    bool NamesNoPrivilege(const Failure& failure) const;
    LanCircumstances Circumstances(const Failure& failure) const;
    TransportError InWords(const Failure& failure) const;

    const ControllerSettings& controller;
    const TimeAllowance allowance;
    const LanSchedule schedule;
    unsigned int workarounds;
    const Password password;
    int attempts = 0;  // sessions
    int silences = 0;  // sessions that ended in silence
    std::chrono::milliseconds silent{0};
    std::optional<Failure> silence;  // the one that got furthest
};

}  // namespace platform
