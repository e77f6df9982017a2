// Which controllers this machine has.
#pragma once

#include <platform/diagnostics/Trouble.h>
#include <platform/settings/Settings.h>

#include <chrono>
#include <string>
#include <vector>

namespace platform {

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

}  // namespace platform
