#include <fcntl.h>
#include <platform/service_processor/FreeIpmiContext.h>
#include <platform/service_processor/InBandTransport.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace platform {

namespace {

// Why the device cannot be opened; 0 when it can. FreeIPMI keeps only a coarse reason.
int ReasonOfOpening(const std::string& device) {
    const int descriptor = open(device.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) return errno;
    close(descriptor);
    return 0;
}

TransportError OpenTrouble(const std::string& device, const FreeIpmiContext& context) {
    const int reason = ReasonOfOpening(device);
    if (reason == 0) {
        return TransportError(Trouble::Other,
                              "The device " + device +
                                  " does not work as an IPMI device: " + context.ErrorText() +
                                  ". Check that it belongs to the kernel module ipmi_devintf.");
    }
    const std::string refused = "The device " + device +
                                " cannot be opened: " + std::generic_category().message(reason) +
                                ". ";
    if (reason == EACCES || reason == EPERM) {
        return TransportError(Trouble::NoPermission,
                              refused + "Run as root, or as a user who may read and write it.");
    }
    return TransportError(Trouble::NoDevice, refused + "Is the kernel module ipmi_devintf loaded?");
}

TransportError ExchangeTrouble(const std::string& device, const FreeIpmiContext& context) {
    if (context.Error() == IPMI_ERR_DRIVER_TIMEOUT) {
        return TransportError(Trouble::NoAnswer,
                              "The kernel's driver behind " + device + " did not answer.");
    }
    return TransportError(Trouble::Other,
                          "The request to " + device + " failed: " + context.ErrorText() + ".");
}

}  // namespace

InBandTransport::InBandTransport(std::string devicePath) : device(std::move(devicePath)) {}

IpmiAnswer InBandTransport::Send(const IpmiRequest& request, std::chrono::milliseconds) {
    constexpr int kNoProbing = 1;
    FreeIpmiContext context;
    if (ipmi_ctx_open_inband(context.Get(), IPMI_DEVICE_OPENIPMI, kNoProbing, 0, 0, device.c_str(),
                             IPMI_WORKAROUND_FLAGS_DEFAULT, IPMI_FLAGS_DEFAULT) < 0) {
        throw OpenTrouble(device, context);
    }
    const auto answer = context.Exchange(request);
    if (!answer) throw ExchangeTrouble(device, context);
    return *answer;
}

}  // namespace platform
