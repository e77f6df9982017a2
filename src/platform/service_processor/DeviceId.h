// A controller's answer to Get Device ID.
#pragma once

#include <platform/service_processor/IpmiMessage.h>

#include <cstdint>
#include <string>

namespace platform {

struct DeviceId {
    std::uint32_t manufacturer = 0;  // IANA enterprise number, 20 bits
    std::uint16_t product = 0;       // the manufacturer's own number
    std::string firmware = {};       // "2.05"
    std::uint8_t device = 0;

    bool operator==(const DeviceId&) const = default;
};

inline const IpmiRequest kDeviceIdRequest = {.netFn = kAppNetFn, .lun = 0, .command = kGetDeviceId};

// Throws TransportError when the answer has a completion code other than 0 or too few data bytes.
DeviceId ReadDeviceId(const IpmiAnswer& answer);

}  // namespace platform
