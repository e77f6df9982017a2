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

    // Opens the device, sends, waits for the answer until the timeout, and closes. Answers to other
    // requests are ignored, and counted in the error if the timeout is reached. A completion code
    // with which the driver answers in the controller's place is an answer.
    IpmiAnswer Send(const IpmiRequest& request, TimeAllowance allowance) override;

    std::string Describe() const override { return "inband " + device; }

private:
    std::string device;
    DevicePresence presence;
};

}  // namespace platform
