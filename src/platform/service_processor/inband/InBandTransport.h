// A controller behind a device of the kernel's IPMI driver.
#pragma once

#include <platform/service_processor/Transport.h>
#include <platform/service_processor/inband/IpmiDevice.h>

namespace platform {

class InBandTransport final : public Transport {
public:
    // `devicePath` is for instance "/dev/ipmi0".
    explicit InBandTransport(std::string devicePath,
                             DevicePresence devicePresence = DevicePresence::Named);

    // Opens the device, sends, waits for the answer as long as a silent controller is waited for,
    // and closes. An answer to something else is ignored, and counted in the error when nothing
    // better comes. A completion code with which the driver answers in the controller's place is an
    // answer.
    IpmiAnswer Send(const IpmiRequest& request, TimeAllowance allowance) override;

    std::string Describe() const override { return "inband " + device; }

private:
    std::string device;
    DevicePresence presence;
};

}  // namespace platform
