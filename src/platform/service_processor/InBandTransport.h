// A controller behind a device of the kernel's IPMI driver.
#pragma once

#include <platform/service_processor/Transport.h>

namespace platform {

class InBandTransport final : public Transport {
public:
    // `devicePath` is for instance "/dev/ipmi0".
    explicit InBandTransport(std::string devicePath);

    // FreeIPMI waits up to 60 s for a silent driver, whatever the limit; the driver itself gives up
    // on a silent controller sooner and answers in its place.
    IpmiAnswer Send(const IpmiRequest& request, std::chrono::milliseconds limit) override;

    std::string Describe() const override { return "inband " + device; }

private:
    std::string device;
};

}  // namespace platform
