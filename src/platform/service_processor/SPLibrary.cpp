#include <platform/diagnostics/SettingsInForce.h>
#include <platform/service_processor/ControllerNode.h>
#include <platform/service_processor/Nodes.h>
#include <platform/service_processor/SPLibrary.h>

SPLibrary* SPLibrary::GetSplibraryInstance(int node) {
    return platform::MakeNode(platform::FindNodes(platform::SettingsInForce()), node).release();
}

SPLibrary* SPLibrary::GetSplibraryInstance(int node, const SPMachine& machine) {
    if (machine.nodes == nullptr) return nullptr;
    return platform::MakeNode(*machine.nodes, node).release();
}

SPMachine SPLibrary::DescribeMachine() {
    return platform::DescribeMachine(std::make_shared<const platform::NodeSet>(
        platform::FindNodes(platform::SettingsInForce())));
}
