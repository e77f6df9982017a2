#include <platform/service_processor/InBandTransport.h>
#include <platform/service_processor/LanTransport.h>
#include <platform/service_processor/SimulatedTransport.h>
#include <platform/service_processor/TransportFactory.h>

namespace platform {

std::unique_ptr<Transport> MakeTransport(const ControllerSettings& controller, int node) {
    switch (controller.transport) {
        case TransportKind::Lan:
            return std::make_unique<LanTransport>(controller);
        case TransportKind::Simulated:
            return std::make_unique<SimulatedTransport>(controller.simulated,
                                                        controller.simulatedGeneration, node);
        case TransportKind::InBand:
            break;
    }
    return std::make_unique<InBandTransport>(
        controller.device, controller.isFound ? DevicePresence::Found : DevicePresence::Named);
}

}  // namespace platform
