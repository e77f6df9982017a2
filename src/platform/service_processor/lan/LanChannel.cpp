#include <platform/service_processor/TransportError.h>
#include <platform/service_processor/lan/LanChannel.h>

#include <algorithm>

namespace platform::lan {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kSecond{1000};

// Poll interval of the stop flag.
constexpr milliseconds kSlice{100};

}  // namespace

LanChannel::LanChannel(const std::string& address, std::uint16_t port, TimeAllowance timeAllowance,
                       Time requestDeadline)
    : socket(address, port), allowance(timeAllowance), deadline(requestDeadline) {}

int LanChannel::Exchange(const Write& write, const Read& read, Patience patience) {
    const Time begin = Now();
    const int sent = Repeat(write, read, {.first = FirstWait(patience), .limit = allowance.limit});
    slowest = std::max(slowest, std::chrono::duration_cast<milliseconds>(Now() - begin));
    repetitions += sent - 1;
    return sent;
}

milliseconds LanChannel::FirstWait(Patience patience) const {
    const milliseconds limit = allowance.limit;
    const milliseconds latest = limit * 9 / 10;
    const milliseconds usual = patience == Patience::Short  ? std::max(limit / 4, kSecond)
                               : patience == Patience::Long ? limit / 2
                                                            : latest;
    return std::min(std::max(usual, 2 * slowest), latest);
}

void LanChannel::Finish(const Write& write, const Read& read) {
    const milliseconds moment = std::min(allowance.limit, kSecond);
    try {
        Repeat(write, read, {.first = moment, .limit = moment});
    } catch (const NoResponse&) {
        return;
    }
}

int LanChannel::Repeat(const Write& write, const Read& read, Pace pace) {
    Time end = std::min(Now() + pace.limit, deadline);
    NoResponse noResponse;
    socket.ForgetError();
    Time next = Now();
    int sent = 0;
    while (true) {
        const Time now = Now();
        if (allowance.IsStopped()) throw Interrupted();
        if (now >= end) {
            noResponse.networkError = socket.Error();
            throw noResponse;
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
        if (*flaw == Flaw::Late && repetitions > 0) {
            --repetitions;
            end = std::min(Now() + pace.limit, deadline);
            next = std::max(next, Now() + pace.first);
        } else {
            noResponse.unusable.Add(*flaw);
        }
    }
}

}  // namespace platform::lan
