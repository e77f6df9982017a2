// How long a command may take.
#pragma once

#include <platform/service_processor/Clock.h>

#include <atomic>
#include <chrono>

namespace platform {

// The test's pause before the retry at a busy controller.
constexpr std::chrono::milliseconds kBusyPause{5000};

// What a run spends on one controller, in time limits: after that, and the pause, no request is
// started. A controller that answers every step late reaches it; one that does not respond times
// out long before.
constexpr int kShareInLimits = 5;

struct TimeAllowance {
    std::chrono::milliseconds limit;          // how long one request may go unanswered
    Time end;                                 // no request starts later
    const std::atomic<bool>* stop = nullptr;  // once true, the command ends early

    bool IsStopped() const { return stop != nullptr && *stop; }
};

// Of a command in a share that began at `begin`.
constexpr TimeAllowance ShareFrom(Time begin, std::chrono::milliseconds limit) {
    return {.limit = limit, .end = begin + kShareInLimits * limit + kBusyPause};
}

}  // namespace platform
