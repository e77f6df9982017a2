#include <platform/service_processor/ControllerNode.h>
#include <platform/service_processor/ExchangeLog.h>
#include <platform/service_processor/Nodes.h>
#include <platform/service_processor/OxcMachine.h>
#include <platform/service_processor/inband/DeviceList.h>
#include <platform/service_processor/inband/InBandTransport.h>
#include <platform/service_processor/lan/LanTransport.h>
#include <platform/service_processor/simulated/SimulatedTransport.h>

#include <algorithm>
#include <utility>

namespace platform {

std::vector<ControllerSettings> NodeList(const Settings& settings,
                                         const std::string& deviceFolder) {
    if (settings.controllers.value) return *settings.controllers.value;
    std::vector<ControllerSettings> nodes;
    for (const auto& [number, path] : Devices(deviceFolder)) {
        ControllerSettings& node = nodes.emplace_back();
        node.transport = TransportKind::InBand;
        node.device = path;
        node.isFound = true;
    }
    return nodes;
}

std::chrono::milliseconds TimeLimit(const Settings& settings,
                                    const ControllerSettings& controller) {
    return std::chrono::seconds(controller.timeLimit.value_or(settings.timeLimit.value));
}

bool IsAbsent(const ControllerSettings& controller) {
    return controller.transport == TransportKind::Simulated && !controller.simulated->present;
}

bool IsSimulated(const Settings& settings) {
    const auto& controllers = settings.controllers.value;
    return !settings.profileFile.value.empty() ||
           (controllers &&
            std::ranges::any_of(*controllers, [](const ControllerSettings& controller) {
                return controller.transport == TransportKind::Simulated;
            }));
}

Trouble NoControllerTrouble(const Settings& settings, const std::string& deviceFolder) {
    const auto& controllers = settings.controllers;
    if (!settings.problem.empty())
        return {.code = "settings",
                .text = "The settings cannot be read: " + settings.problem,
                .advice = "Fix them, then run the test again."};
    if (controllers.origin == Origin::Profile)
        return {.code = "no_controller",
                .text = "The profile " + controllers.place + " lists no controller.",
                .advice =
                    "Add a [[node]], or run the test without a profile to use this machine's "
                    "IPMI devices."};
    if (controllers.value)
        return {.code = "no_controller",
                .text = "The settings list no controller (" + controllers.place + ").",
                .advice =
                    "Add a [[controller]], or remove the key to use this machine's IPMI "
                    "devices."};
    return {.code = "no_device",
            .text = MissingDevices(deviceFolder),
            .advice =
                "Load the kernel's IPMI driver (modprobe -a ipmi_si ipmi_devintf), or list "
                "the controllers in the settings file, then run the test again."};
}

std::string NoDeviceText(const std::string& deviceFolder) {
    return MissingDevices(deviceFolder) + " Is the kernel module ipmi_devintf loaded?";
}

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
