#include <freeipmi/freeipmi.h>
#include <platform/service_processor/TransportError.h>
#include <platform/service_processor/lan/LanAccount.h>

#include <algorithm>

namespace platform::lan {

namespace {

const ControllerSettings& Checked(const ControllerSettings& controller) {
    if (controller.user.size() > IPMI_MAX_USER_NAME_LENGTH) {
        throw TransportError(
            TroubleCode::Settings,
            "The user name '" + controller.user + "' is longer than the 16 bytes that IPMI takes.",
            "");
    }
    if (controller.protocol != "1.5" && !IPMI_CIPHER_SUITE_ID_SUPPORTED(controller.cipherSuite)) {
        throw TransportError(TroubleCode::Settings,
                             "FreeIPMI does not support cipher suite " +
                                 std::to_string(controller.cipherSuite) + ".",
                             "Most controllers offer cipher suite 3 or 17.");
    }
    return controller;
}

}  // namespace

std::string LanPlace(const ControllerSettings& controller) {
    const std::string& host = controller.host;
    const bool needsBrackets = host.find(':') != std::string::npos && !host.starts_with('[');
    return (needsBrackets ? "[" + host + "]" : host) + ":" + std::to_string(controller.port);
}

LanAccount::LanAccount(const ControllerSettings& controllerSettings)
    : controller(Checked(controllerSettings)),
      password(controller.passwordFile,
               IsProtocol15() ? IPMI_1_5_MAX_PASSWORD_LENGTH : IPMI_2_0_MAX_PASSWORD_LENGTH),
      key(controller.keyFile) {}

std::uint8_t LanAccount::PrivilegeLevel() const {
    if (controller.privilegeLevel == "user") return IPMI_PRIVILEGE_LEVEL_USER;
    if (controller.privilegeLevel == "operator") return IPMI_PRIVILEGE_LEVEL_OPERATOR;
    return IPMI_PRIVILEGE_LEVEL_ADMIN;
}

bool LanAccount::Has(std::string_view workaround) const {
    return std::ranges::find(controller.workarounds, workaround) != controller.workarounds.end();
}

}  // namespace platform::lan
