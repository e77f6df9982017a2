#include <platform/service_processor/lan/LanAccount.h>

#include <algorithm>

namespace platform::lan {

std::string LanPlace(const ControllerSettings& controller) {
    const std::string& host = controller.host;
    const bool needsBrackets = host.find(':') != std::string::npos && !host.starts_with('[');
    return (needsBrackets ? "[" + host + "]" : host) + ":" + std::to_string(controller.port);
}

LanAccount::LanAccount(const ControllerSettings& controllerSettings)
    : controller(controllerSettings),
      password(controller.passwordFile, LongestPassword(controller.protocol)),
      key(ReadBmcKey(controller.keyFile)) {}

bool LanAccount::Has(std::string_view workaround) const {
    return std::ranges::find(controller.workarounds, workaround) != controller.workarounds.end();
}

}  // namespace platform::lan
