// Shows a run's progress in one terminal line that is redrawn in place.
#pragma once

#include <test/RunOptions.h>

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <iosfwd>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace cli {

struct ProgressState {
    using Time = std::chrono::steady_clock::time_point;

    Time begin;                    // of the run
    int node = 0;                  // from 0
    int count = 0;                 // of controllers; 0 before the first one is asked
    std::string address;           // of the controller
    std::optional<Time> pauseEnd;  // while it is busy: when it is asked again
};

// "Asking controller 2 of 3, lan 192.0.2.1:623 (4 s)".
std::string ProgressText(const ProgressState& state, ProgressState::Time now);

// Draws the line as long as it lives, and erases it at its end. A thread of its own, which takes no
// signal, counts the seconds.
class Progress final : public RunObserver {
public:
    // `width`: columns of the terminal behind `output`.
    Progress(std::ostream& output, std::size_t width);
    ~Progress() override;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void OnController(int node, int count, const std::string& address) override;
    void OnBusyPause(int node, std::chrono::seconds pause) override;

private:
    void Tick();
    void Draw();
    void Redraw(const std::string& text);

    std::ostream& out;
    const std::size_t most;  // characters of the line

    std::mutex lock;  // guards the members below, and the output
    std::condition_variable ended;
    bool isOver = false;
    ProgressState state;
    std::string drawn;

    std::thread ticker;  // the last member: it uses the others
};

// True when the standard output is a terminal on which a line can be redrawn.
bool CanShowProgress();

}  // namespace cli
