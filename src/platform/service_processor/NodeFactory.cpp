#include <platform/service_processor/ExchangeLog.h>
#include <platform/service_processor/NodeFactory.h>
#include <platform/service_processor/OxcMachine.h>
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
                  .askFamily =
                      [family = settings.oxc.value, first = nodes.front(),
                       limit = TimeLimit(settings, nodes.front())] {
                          return AskOxcFamily(family, first, limit);
                      },
                  .timeLimit = TimeLimit(settings, controller)},
        MakeTransport(controller, node));
}

SPMachine DescribeMachine(const Settings& settings, const std::string& deviceFolder) {
    SPMachine machine;
    for (const ControllerSettings& controller : NodeList(settings, deviceFolder)) {
        const int node = static_cast<int>(machine.controllers.size());
        machine.controllers.push_back({.address = MakeTransport(controller, node)->Describe(),
                                       .present = !IsAbsent(controller)});
    }
    machine.simulated = IsSimulated(settings);
    if (machine.controllers.empty()) machine.trouble = NoControllerTrouble(settings, deviceFolder);
    return machine;
}

}  // namespace platform
