// A controller's share of a run: its time limit and the pause of 5 s for a busy one. Every share
// that is kept makes a run end within (number of controllers) x (time limit + 5 s).
//
// The library object of a command does not outlive it, so the share is kept by thread: a run asks
// its controllers one after the other, on one thread. A controller's share begins with the request
// for its bus status, and goes on with
// - the second such request, which follows the pause after a busy answer;
// - a request of another kind, such as the generation query, to whatever node it goes.
// A question who the first controller is (Get Device ID) just before its status begins its share.
//
// A run pauses after the first busy answer, whenever it came. One that came so late that the pause
// would not fit the share must not reach the run.
#pragma once

#include <platform/service_processor/Clock.h>
#include <platform/service_processor/IpmiMessage.h>
#include <platform/service_processor/TimeAllowance.h>

namespace platform {

class TimeShare {
public:
    // What is left for a command that begins now; a total of 0 or less: nothing.
    TimeAllowance Begin(int node, const IpmiRequest& request, std::chrono::milliseconds limit,
                        Time now);

    // The command that began last is over. False when the controller said that it is busy, and the
    // share has no time for the pause that follows.
    bool End(bool wasBusy, Time now);

private:
    enum class Status { NotAsked, Asked, AskedTwice };

    bool GoesOn(int nodeAsked, bool asksStatus, Time now) const;

    std::chrono::milliseconds Left(Time now) const;

    bool begun = false;
    Time start;
    std::chrono::milliseconds total{0};
    Time lastEnd;
    int node = 0;
    int otherRequests = 0;  // since the status was asked
    Status status = Status::NotAsked;
    bool lastWasBusy = false;
};

// Of the thread that calls.
TimeShare& ShareOfThisThread();

}  // namespace platform
