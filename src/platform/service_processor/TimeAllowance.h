// How long a command may take.
#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>

namespace platform {

struct TimeAllowance {
    std::chrono::milliseconds silence;  // a silent controller is waited for so long
    std::chrono::milliseconds total;  // the command ends within this, whatever the controller does
    const std::atomic<bool>* stop = nullptr;  // once true, the command ends early

    bool IsStopped() const { return stop != nullptr && *stop; }
};

// What a controller may take of a run beyond its time limit: the diagnostic test's pause before it
// asks a busy controller once more.
constexpr std::chrono::milliseconds kBusyPause{5000};

// What a run does between its commands.
constexpr std::chrono::milliseconds kReserve{250};

// Of a command that has a controller's whole share of a run.
constexpr TimeAllowance WholeAllowance(std::chrono::milliseconds limit) {
    return {.silence = limit, .total = limit + kBusyPause - kReserve};
}

}  // namespace platform
