// A UDP socket that talks to one controller.
#pragma once

#include <platform/service_processor/Clock.h>
#include <platform/service_processor/lan/Bytes.h>

#include <cstdint>
#include <optional>
#include <string>

namespace platform::lan {

class UdpSocket {
public:
    // `address` is in digits. Throws std::system_error when there is no way to it.
    UdpSocket(const std::string& address, std::uint16_t port);
    UdpSocket(const UdpSocket&) = delete;
    UdpSocket& operator=(const UdpSocket&) = delete;
    ~UdpSocket();

    // An error of the network is kept as Error().
    void Send(ByteView packet);

    // Nothing when none has come until then, or the network reports an error.
    std::optional<Bytes> Receive(Time until);

    // What the system reported last (errno); 0: no error.
    int Error() const { return error; }
    void ForgetError() { error = 0; }

private:
    int descriptor;
    int error = 0;
};

}  // namespace platform::lan
