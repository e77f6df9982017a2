// The controllers of this machine, and their library objects.
#pragma once

#include <platform/service_processor/ControllerNode.h>
#include <platform/service_processor/NodeList.h>

#include <memory>
#include <vector>

namespace platform {

// The controllers at one moment, and the settings that they were found by.
struct NodeSet {
    std::shared_ptr<const Settings> settings;
    std::vector<ControllerSettings> controllers;  // in node order
};

NodeSet FindNodes(std::shared_ptr<const Settings> settings,
                  const std::string& deviceFolder = kDeviceFolder);

// Null when there is no controller of that number, or the profile says that it is not present. A
// machine without any IPMI device is reported to the log, for node 0.
std::unique_ptr<ControllerNode> MakeNode(const NodeSet& nodes, int node,
                                         const std::string& deviceFolder = kDeviceFolder);

// What is told of the controllers that MakeNode() numbers.
SPMachine DescribeMachine(std::shared_ptr<const NodeSet> nodes,
                          const std::string& deviceFolder = kDeviceFolder);

}  // namespace platform
