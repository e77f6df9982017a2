// The controllers of this machine: which there are, how they are reached, and their library
// objects.
#pragma once

#include <platform/diagnostics/Trouble.h>
#include <platform/service_processor/SPLibrary.h>
#include <platform/service_processor/Transport.h>
#include <platform/settings/Settings.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace platform {

class ControllerNode;

// Where the kernel shows its devices.
constexpr char kDeviceFolder[] = "/dev";

// The controllers of the settings, in their order; without any, one in-band controller for each
// IPMI device of the folder (ipmiN, ipmi/N, ipmidev/N), in numeric order.
std::vector<ControllerSettings> NodeList(const Settings& settings,
                                         const std::string& deviceFolder = kDeviceFolder);

// How long the controller may take: its own limit, or that of all controllers.
std::chrono::milliseconds TimeLimit(const Settings& settings, const ControllerSettings& controller);

// True when a profile says that this controller is not present.
bool IsAbsent(const ControllerSettings& controller);

// True when a profile or a controller's settings stand for real hardware.
bool IsSimulated(const Settings& settings);

// Why NodeList() is empty, and what to do.
Trouble NoControllerTrouble(const Settings& settings,
                            const std::string& deviceFolder = kDeviceFolder);

// Why there is no device in the folder: every path of device 0, each with its own reason, and what
// to do.
std::string NoDeviceText(const std::string& deviceFolder = kDeviceFolder);

// The transport that a controller's settings select. `node` is the controller's number, from 0.
std::unique_ptr<Transport> MakeTransport(const ControllerSettings& controller, int node);

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
