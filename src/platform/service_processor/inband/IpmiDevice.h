// An open device of the kernel's IPMI driver (module ipmi_devintf), for one command.
//
// The driver keeps the answers of every descriptor apart, so that processes and threads that use
// the same device at the same time do not see each other's answers.
#pragma once

#include <platform/service_processor/Clock.h>
#include <platform/service_processor/IpmiMessage.h>

#include <atomic>
#include <optional>
#include <string>

namespace platform {

// Where a device's path comes from: it tells one that has gone from one that never was.
enum class DevicePresence {
    Named,  // by the settings
    Found,  // among the devices of the kernel
};

class IpmiDevice {
public:
    // Throws TransportError when the device cannot be opened.
    explicit IpmiDevice(const std::string& devicePath,
                        DevicePresence presence = DevicePresence::Named);
    IpmiDevice(const IpmiDevice&) = delete;
    IpmiDevice& operator=(const IpmiDevice&) = delete;
    ~IpmiDevice();

    // Hands the request to the driver. Throws TransportError.
    void Send(const IpmiRequest& request, long messageId);

    // The next message of the driver, whatever it answers; nothing when none comes until `end`, or
    // soon after `stop` has become true. Throws TransportError.
    struct Message {
        bool isAnswer = false;          // else an event, or a request to this program
        bool isFromController = false;  // else from another address of its busses
        long messageId = 0;
        std::uint8_t netFn = 0;
        std::uint8_t command = 0;
        std::vector<std::uint8_t> data = {};  // the completion code first; cut at 272 bytes
    };
    std::optional<Message> Receive(Time end, const std::atomic<bool>* stop = nullptr);

private:
    bool WaitForMessage(Time end, const std::atomic<bool>* stop);

    std::string path;
    int descriptor;
};

}  // namespace platform
