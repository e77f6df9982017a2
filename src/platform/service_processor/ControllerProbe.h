// Sends Get Device ID to a controller and nothing else: the command is the same for all makes and
// changes nothing.
//
//     for (const ProbedNode& node : NodesToProbe(settings)) {
//         const ProbeResult result = ProbeController(node.controller, node.number, node.limit);
//         std::cout << node.way << ": " << (result.id ? result.id->firmware : result.trouble.text);
//     }
#pragma once

#include <platform/service_processor/DeviceId.h>
#include <platform/service_processor/Nodes.h>
#include <platform/settings/Settings.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace platform {

struct ProbedNode {
    int number = 0;   // from 0
    std::string way;  // "inband /dev/ipmi0", "lan 192.0.2.1:623", "simulated"
    ControllerSettings controller;
    std::chrono::milliseconds limit{0};  // of the settings
};

struct ProbeResult {
    std::optional<DeviceId> id;  // when the controller told it
    Trouble trouble;             // why it did not
};

// The controllers that the test would ask, in node order.
std::vector<ProbedNode> NodesToProbe(const Settings& settings,
                                     const std::string& deviceFolder = kDeviceFolder);

// Sends Get Device ID the way the test sends its commands. Writes no log line. Throws only
// std::bad_alloc.
ProbeResult ProbeController(const ControllerSettings& controller, int node,
                            std::chrono::milliseconds limit);

}  // namespace platform
