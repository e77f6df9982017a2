#include <platform/service_processor/ExchangeLog.h>
#include <platform/service_processor/NodeFactory.h>
#include <platform/service_processor/TransportFactory.h>

namespace platform {

std::unique_ptr<ControllerNode> MakeNode(const Settings& settings, int node,
                                         const std::string& deviceFolder) {
    const std::vector<ControllerSettings> nodes = NodeList(settings, deviceFolder);
    if (node == 0 && nodes.empty() && !settings.controllers.value) {
        LogTrouble(NoDeviceText(deviceFolder));
    }
    const int count = static_cast<int>(nodes.size());
    if (node < 0 || node >= count) return nullptr;

    const ControllerSettings& controller = nodes[static_cast<std::size_t>(node)];
    if (IsAbsent(controller)) return nullptr;
    return std::make_unique<ControllerNode>(
        NodeFacts{.node = node,
                  .nodeCount = count,
                  .isOxc = settings.oxc.value == OxcFamily(true),
                  .timeLimit = std::chrono::seconds(
                      controller.timeLimit.value_or(settings.timeLimit.value))},
        MakeTransport(controller, node));
}

}  // namespace platform
