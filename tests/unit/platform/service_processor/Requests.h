// The requests that the module sends.
#pragma once

#include <platform/service_processor/IpmiMessage.h>

namespace platform {

inline constexpr IpmiRequest kStatus = {.netFn = kOemNetFn, .lun = 0, .command = kI2cBusStatus};
inline constexpr IpmiRequest kGeneration = {
    .netFn = kOemNetFn, .lun = 0, .command = kControllerGeneration};
inline constexpr IpmiRequest kDeviceId = {.netFn = kAppNetFn, .lun = 0, .command = kGetDeviceId};

}  // namespace platform
