#include <platform/service_processor/TransportError.h>
#include <platform/service_processor/lan/LanChannel.h>

#include <algorithm>

namespace platform::lan {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kSecond{1000};

// How often the stop flag is looked at.
constexpr milliseconds kSlice{100};

}  // namespace

LanChannel::LanChannel(const std::string& address, std::uint16_t port, TimeAllowance timeAllowance,
                       Time requestDeadline)
    : socket(address, port), allowance(timeAllowance), deadline(requestDeadline) {}

int LanChannel::Exchange(const Write& write, const Read& read) {
    const milliseconds shortest = std::min(kSecond, allowance.limit / 2);
    return Repeat(write, read,
                  {.first = std::max(allowance.limit / 4, shortest), .limit = allowance.limit});
}

int LanChannel::ExchangePatiently(const Write& write, const Read& read) {
    return Repeat(write, read, {.first = allowance.limit / 2, .limit = allowance.limit});
}

void LanChannel::Finish(const Write& write, const Read& read) {
    const milliseconds moment = std::min(allowance.limit, kSecond);
    try {
        Repeat(write, read, {.first = moment, .limit = moment});
    } catch (const Silence&) {
        return;
    }
}

int LanChannel::Repeat(const Write& write, const Read& read, Pace pace) {
    const Time end = std::min(Now() + pace.limit, deadline);
    Silence silence;
    socket.ForgetError();
    Time next = Now();
    int sent = 0;
    while (true) {
        const Time now = Now();
        if (allowance.IsStopped()) throw Interrupted();
        if (now >= end) {
            silence.networkError = socket.Error();
            throw silence;
        }
        if (now >= next) {
            socket.Send(write());
            ++sent;
            next = now + pace.first;
            pace.first *= 2;
        }
        const std::optional<Bytes> packet = socket.Receive(std::min({end, next, now + kSlice}));
        if (!packet) continue;
        const std::optional<Flaw> flaw = read(*packet);
        if (!flaw) return sent;
        silence.unusable.Add(*flaw);
    }
}

}  // namespace platform::lan
