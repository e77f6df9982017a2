// An IPMI request and its answer, apart from how they travel.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace platform {

struct IpmiRequest {
    std::uint8_t netFn = 0;
    std::uint8_t lun = 0;
    std::uint8_t command = 0;
    std::vector<std::uint8_t> data = {};
};

struct IpmiAnswer {
    std::uint8_t completionCode = 0;
    std::vector<std::uint8_t> data = {};
    std::optional<int> length = std::nullopt;  // reported to the caller instead of the true length
    int attempts = 1;                          // how often the transport had to begin
};

// Network functions of requests.
constexpr std::uint8_t kAppNetFn = 0x06;
constexpr std::uint8_t kOemNetFn = 0x3A;

// Commands of network function "App".
constexpr std::uint8_t kGetDeviceId = 0x01;

// Commands of network function "OEM".
constexpr std::uint8_t kI2cBusStatus = 0x09;
constexpr std::uint8_t kControllerGeneration = 0xC1;

// Completion codes that are named in a log line. With kTimeOver the kernel's driver reports the
// controller's timeout.
constexpr std::uint8_t kCompleted = 0x00;
constexpr std::uint8_t kNodeBusy = 0xC0;
constexpr std::uint8_t kInvalidCommand = 0xC1;
constexpr std::uint8_t kTimeOver = 0xC3;
constexpr std::uint8_t kStarting = 0xD2;
constexpr std::uint8_t kInsufficientPrivilege = 0xD4;
constexpr std::uint8_t kControllerBusy = 0xFF;

}  // namespace platform
