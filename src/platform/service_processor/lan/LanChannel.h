// Requests to one controller and their answers, repeated as UDP demands.
#pragma once

#include <platform/service_processor/TimeAllowance.h>
#include <platform/service_processor/UnusableAnswers.h>
#include <platform/service_processor/lan/UdpSocket.h>

#include <functional>
#include <string>

namespace platform::lan {

// Thrown when no usable answer came in time.
struct Silence {
    UnusableAnswers unusable;
    int networkError = 0;  // what the system reported (errno), if anything

    bool IsComplete() const { return unusable.IsEmpty() && networkError == 0; }
};

class LanChannel {
public:
    // A request is waited for as long as `allowance` says, but not beyond `deadline`. Throws
    // std::system_error when there is no way to the address.
    LanChannel(const std::string& address, std::uint16_t port, TimeAllowance timeAllowance,
               Time deadline);

    // Makes the packet, once for each time that it is sent.
    using Write = std::function<Bytes()>;

    // Takes the answer, or says why the packet is none.
    using Read = std::function<std::optional<Flaw>(ByteView packet)>;

    // Sends until `read` takes an answer, and returns how often it sent. The time before a
    // retransmission doubles each time. Throws Silence, and TransportError when it was told to
    // stop.
    int Exchange(const Write& write, const Read& read);

    // The same, but a retransmission costs the controller something, so there is only a late one.
    int ExchangePatiently(const Write& write, const Read& read);

    // Sends once, and waits for the answer for a moment.
    void Finish(const Write& write, const Read& read);

    // Sends once.
    void Send(ByteView packet) { socket.Send(packet); }

private:
    struct Pace {
        std::chrono::milliseconds first;  // before the first retransmission
        std::chrono::milliseconds limit;
    };

    int Repeat(const Write& write, const Read& read, Pace pace);

    UdpSocket socket;
    const TimeAllowance allowance;
    const Time deadline;
};

}  // namespace platform::lan
