#include <cli/Printable.h>
#include <cli/run/Progress.h>
#include <platform/settings/Environment.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <ostream>

namespace cli {

namespace {

using std::chrono::steady_clock;

constexpr std::chrono::milliseconds kTick{200};

// Rounded up, as a countdown is read.
std::string SecondsUntil(ProgressState::Time end, ProgressState::Time now) {
    return std::to_string(std::chrono::ceil<std::chrono::seconds>(end - now).count()) + " s";
}

std::string SecondsSince(ProgressState::Time begin, ProgressState::Time now) {
    return std::to_string(std::chrono::floor<std::chrono::seconds>(now - begin).count()) + " s";
}

std::string Activity(const ProgressState& state, ProgressState::Time now) {
    if (state.count == 0) return "Looking for controllers";
    const std::string controller = "controller " + std::to_string(state.node + 1) + " of " +
                                   std::to_string(state.count) + ", " + state.address;
    if (state.pauseEnd && *state.pauseEnd > now)
        return "Busy: asking " + controller + ", again in " + SecondsUntil(*state.pauseEnd, now);
    return "Asking " + controller;
}

// Starts a thread that the process's signals never reach, so that they interrupt the run.
template <class Function>
std::thread WithoutSignals(Function function) {
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    std::thread thread(function);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return thread;
}

}  // namespace

std::string ProgressText(const ProgressState& state, ProgressState::Time now) {
    return Activity(state, now) + " (" + SecondsSince(state.begin, now) + ")";
}

Progress::Progress(std::ostream& output, std::size_t width)
    : out(output), most(std::max<std::size_t>(width, 2) - 1) {
    state.begin = steady_clock::now();
    ticker = WithoutSignals([this] { Tick(); });
}

Progress::~Progress() {
    {
        const std::lock_guard guard(lock);
        isOver = true;
    }
    ended.notify_one();
    ticker.join();
    Redraw("");
    out << '\r' << std::flush;
}

void Progress::OnController(int node, int count, const std::string& address) {
    const std::lock_guard guard(lock);
    state.node = node;
    state.count = count;
    state.address = PrintableLine(address);
    state.pauseEnd.reset();
    Draw();
}

void Progress::OnBusyPause(int /*node*/, std::chrono::seconds pause) {
    const std::lock_guard guard(lock);
    state.pauseEnd = steady_clock::now() + pause;
    Draw();
}

void Progress::Tick() {
    std::unique_lock guard(lock);
    while (!ended.wait_for(guard, kTick, [this] { return isOver; })) Draw();
}

void Progress::Draw() { Redraw(ProgressText(state, steady_clock::now()).substr(0, most)); }

// Blanks cover what was there: they need no control sequence.
void Progress::Redraw(const std::string& text) {
    if (text == drawn) return;
    const std::size_t covered = drawn.size() - std::min(drawn.size(), text.size());
    out << '\r' << text << std::string(covered, ' ') << std::flush;
    drawn = text;
}

bool CanShowProgress() {
    return ::isatty(STDOUT_FILENO) != 0 && platform::EnvironmentText("TERM") != "dumb";
}

}  // namespace cli
