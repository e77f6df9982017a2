// FreeIPMI's failures of a LAN session, put into words for the one who has to mend them.
#pragma once

#include <platform/service_processor/TransportError.h>
#include <platform/settings/Settings.h>

#include <chrono>
#include <string>

namespace platform {

struct LanCircumstances {
    const ControllerSettings& controller;
    std::string address;                // "host:port"
    std::chrono::milliseconds silence;  // how long a silent controller is asked
    int attempts;
    int error;  // FreeIPMI's IPMI_ERR_...
    std::string errorText;
};

// No session could be opened.
TransportError OpenTrouble(const LanCircumstances& circumstances);

// The session is open, but there is no time left for a command.
TransportError TooSlowToOpen(const LanCircumstances& circumstances);

// The command failed in an open session.
TransportError ExchangeTrouble(const LanCircumstances& circumstances);

}  // namespace platform
