#include <platform/service_processor/ExchangeLog.h>
#include <platform/service_processor/NodeFactory.h>
#include <platform/service_processor/OxcMachine.h>
#include <platform/service_processor/TransportFactory.h>

#include <utility>

namespace platform {

NodeSet FindNodes(std::shared_ptr<const Settings> settings, const std::string& deviceFolder) {
    std::vector<ControllerSettings> controllers = NodeList(*settings, deviceFolder);
    return {.settings = std::move(settings), .controllers = std::move(controllers)};
}

std::unique_ptr<ControllerNode> MakeNode(const NodeSet& nodes, int node,
                                         const std::string& deviceFolder) {
    const Settings& settings = *nodes.settings;
    if (node == 0 && nodes.controllers.empty() && !settings.controllers.value) {
        LogTrouble(NoDeviceText(deviceFolder));
    }
    const int count = static_cast<int>(nodes.controllers.size());
    if (node < 0 || node >= count) return nullptr;

    const ControllerSettings& controller = nodes.controllers[static_cast<std::size_t>(node)];
    if (IsAbsent(controller)) return nullptr;
    const ControllerSettings& first = nodes.controllers.front();
    return std::make_unique<ControllerNode>(
        NodeFacts{.node = node,
                  .nodeCount = count,
                  .askFamily =
                      [family = settings.oxc.value, first, limit = TimeLimit(settings, first)] {
                          return AskOxcFamily(family, first, limit);
                      },
                  .timeLimit = TimeLimit(settings, controller)},
        MakeTransport(controller, node));
}

SPMachine DescribeMachine(std::shared_ptr<const NodeSet> nodes, const std::string& deviceFolder) {
    const Settings& settings = *nodes->settings;
    SPMachine machine;
    for (const ControllerSettings& controller : nodes->controllers) {
        const int node = static_cast<int>(machine.controllers.size());
        machine.controllers.push_back({.address = MakeTransport(controller, node)->Describe(),
                                       .present = !IsAbsent(controller)});
    }
    machine.simulated = IsSimulated(settings);
    if (machine.controllers.empty()) machine.trouble = NoControllerTrouble(settings, deviceFolder);
    machine.nodes = std::move(nodes);
    return machine;
}

}  // namespace platform
