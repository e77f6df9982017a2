// Requests to one controller and their answers, with retransmission over UDP.
#pragma once

#include <platform/service_processor/TimeAllowance.h>
#include <platform/service_processor/UnusableAnswers.h>
#include <platform/service_processor/lan/UdpSocket.h>

#include <functional>
#include <string>

namespace platform::lan {

// Thrown on a timeout without a usable answer.
struct NoResponse {
    UnusableAnswers unusable;
    int networkError = 0;  // what the system reported (errno), if anything

    bool IsComplete() const { return unusable.IsEmpty() && networkError == 0; }
};

class LanChannel {
public:
    using milliseconds = std::chrono::milliseconds;

    // A request is waited for as long as `allowance` says, but not beyond `deadline`. Throws
    // std::system_error when there is no way to the address.
    LanChannel(const std::string& address, std::uint16_t port, TimeAllowance timeAllowance,
               Time deadline);

    // Makes the packet, once for each time that it is sent.
    using Write = std::function<Bytes()>;

    // Takes the answer, or says why the packet is none.
    using Read = std::function<std::optional<Flaw>(ByteView packet)>;

    // How soon a request is sent again. Controllers work one request at a time: each repetition
    // delays what follows.
    enum class Patience {
        Short,  // after a quarter of the time limit, or a second: the request costs little
        Long,   // after half of it: a repetition takes a second session slot
        Most,   // after nine tenths of it: the command itself may be slow
    };

    // Sends until `read` takes an answer, and returns how often it sent. The time before a
    // retransmission doubles each time, and is at least twice that of the slowest answer until
    // now. Answers to repetitions show that the controller is at work, so each restarts the wait.
    // Throws NoResponse, and TransportError when it was told to stop.
    int Exchange(const Write& write, const Read& read, Patience patience);

    // Sends once, and waits for the answer for a moment.
    void Finish(const Write& write, const Read& read);

    // Sends once.
    void Send(ByteView packet) { socket.Send(packet); }

private:
    struct Pace {
        milliseconds first;  // before the first retransmission
        milliseconds limit;
    };

    int Repeat(const Write& write, const Read& read, Pace pace);

    milliseconds FirstWait(Patience patience) const;

    UdpSocket socket;
    const TimeAllowance allowance;
    const Time deadline;
    milliseconds slowest{0};  // answer until now
    int repetitions = 0;      // of answered requests, which the controller may still answer
};

}  // namespace platform::lan
