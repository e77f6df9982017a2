// Signals during a run: SIGINT, SIGTERM and SIGHUP.
#pragma once

#include <atomic>
#include <optional>

namespace cli {

// While an object lives, the first SIGINT, SIGTERM or SIGHUP only asks to stop and lets blocking
// calls return; a second one ends the process at once. A signal that was ignored before stays
// ignored. One object at a time, on the main thread.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    // True from the first signal on.
    const std::atomic<bool>& IsRequested() const;

    // The signal that came.
    std::optional<int> Signal() const;
};

}  // namespace cli
