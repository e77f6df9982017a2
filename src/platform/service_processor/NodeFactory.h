// Makes the library object of a node, and describes all nodes.
#pragma once

#include <platform/service_processor/ControllerNode.h>
#include <platform/service_processor/NodeList.h>

#include <memory>

namespace platform {

// Null when the machine has no controller of that number, or the profile says that it is not
// present. A machine without any IPMI device is reported to the log, for node 0.
std::unique_ptr<ControllerNode> MakeNode(const Settings& settings, int node,
                                         const std::string& deviceFolder = kDeviceFolder);

// The controllers that MakeNode() numbers.
SPMachine DescribeMachine(const Settings& settings,
                          const std::string& deviceFolder = kDeviceFolder);

}  // namespace platform
