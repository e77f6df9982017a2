// A simulated machine, as a TOML profile describes it.
#pragma once

#include <platform/settings/KeyPlaces.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace platform {

// One controller of a simulated machine.
struct SimulatedNode {
    std::vector<std::uint8_t> data;  // status bytes, delivered whatever the completion code
    std::uint8_t completionCode = 0;
    int busy = 0;               // so many requests are answered 0xFF first, in the process's life
    std::optional<int> length;  // reported for the status command instead of the true length
    bool answers = true;        // false: requests are not delivered
    bool present = true;        // false: there is no library object for this node
    bool answersGeneration = true;              // false: the generation query is not delivered
    std::uint8_t generationCompletionCode = 0;  // of the generation query
    bool answersDeviceId = true;                // false: Get Device ID is not delivered
};

struct SimulatedProfile {
    std::optional<std::string> machineType;
    std::optional<std::string> biosId;
    std::optional<bool> oxc;
    std::optional<bool> oemBuild;
    int generation = 1;  // of the OXC controller: 1 or 2
    std::vector<SimulatedNode> nodes;
    KeyPlaces places;  // of its keys outside [[node]]
};

// Throws SettingsError, which names file, line and key.
SimulatedProfile ReadSimulatedProfile(const std::string& path);

}  // namespace platform
