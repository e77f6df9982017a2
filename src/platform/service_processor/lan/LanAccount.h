// The account and parameters of a session.
#pragma once

#include <platform/service_processor/lan/BmcKey.h>
#include <platform/service_processor/lan/Password.h>
#include <platform/settings/LanSupport.h>
#include <platform/settings/Settings.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace platform::lan {

// "host:port", with brackets around an IPv6 address.
std::string LanPlace(const ControllerSettings& controller);

struct LanAccount {
    // `controllerSettings` must outlive the object. Throws TransportError when the password or the
    // key cannot be read.
    explicit LanAccount(const ControllerSettings& controllerSettings);

    bool IsProtocol15() const { return controller.protocol == "1.5"; }

    // IPMI's number.
    std::uint8_t PrivilegeLevel() const { return PrivilegeLevelOf(controller.privilegeLevel); }

    // By its name in the settings.
    bool Has(std::string_view workaround) const;

    const ControllerSettings& controller;
    const Password password;
    const SecretBytes key;  // K_G
};

}  // namespace platform::lan
