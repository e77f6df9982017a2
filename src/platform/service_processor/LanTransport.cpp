#include <platform/service_processor/LanExchange.h>
#include <platform/service_processor/LanTransport.h>

#include <utility>

namespace platform {

LanTransport::LanTransport(ControllerSettings controllerSettings)
    : controller(std::move(controllerSettings)) {}

std::string LanTransport::Describe() const {
    return "lan " + LanAddress(controller.host, controller.port);
}

IpmiAnswer LanTransport::Send(const IpmiRequest& request, TimeAllowance allowance) {
    return LanExchange(controller, allowance).Send(request);
}

}  // namespace platform
