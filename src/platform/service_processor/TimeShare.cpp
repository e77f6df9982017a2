#include <platform/service_processor/TimeShare.h>

namespace platform {

namespace {

using std::chrono::milliseconds;

// Longer than the pause after a busy answer; a request after a longer one is of another run.
constexpr milliseconds kLongestPause = kBusyPause + milliseconds(1000);

bool AsksStatus(const IpmiRequest& request) {
    return request.netFn == kOemNetFn && request.command == kI2cBusStatus;
}

}  // namespace

bool TimeShare::GoesOn(int nodeAsked, bool asksStatus, Time now) const {
    if (!begun || now - lastEnd > kLongestPause) return false;
    if (!asksStatus) return otherRequests == 0;
    if (nodeAsked != node) return false;
    return status == Status::NotAsked || (status == Status::Asked && lastWasBusy);
}

TimeAllowance TimeShare::Begin(int nodeAsked, const IpmiRequest& request, milliseconds limit,
                               Time now) {
    const bool asksStatus = AsksStatus(request);
    if (!GoesOn(nodeAsked, asksStatus, now)) {
        *this = TimeShare();
        begun = true;
        start = now;
        total = WholeAllowance(limit).total;
        node = nodeAsked;
    }
    if (asksStatus) {
        status = status == Status::NotAsked ? Status::Asked : Status::AskedTwice;
        otherRequests = 0;
    } else {
        ++otherRequests;
    }
    const milliseconds left = Left(now);
    return {.silence = std::min(limit, left), .total = left};
}

bool TimeShare::End(bool wasBusy, Time now) {
    lastEnd = now;
    lastWasBusy = wasBusy && otherRequests == 0;
    const bool isPausedAfter = lastWasBusy && status == Status::Asked;
    return !isPausedAfter || Left(now) >= kBusyPause;
}

milliseconds TimeShare::Left(Time now) const {
    return total - std::chrono::ceil<milliseconds>(now - start);
}

TimeShare& ShareOfThisThread() {
    thread_local TimeShare share;
    return share;
}

}  // namespace platform
