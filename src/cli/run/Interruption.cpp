#include <cli/run/Interruption.h>

#include <array>
#include <csignal>

namespace cli {

namespace {

constexpr std::array<int, 3> kSignals = {SIGINT, SIGTERM, SIGHUP};

using Actions = std::array<struct sigaction, kSignals.size()>;

// A signal handler can only reach static data.
std::atomic<bool> requested = false;
std::atomic<int> received = 0;
Actions handlersBefore = {};
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<int>::is_always_lock_free);

void Restore() {
    for (std::size_t i = 0; i < kSignals.size(); ++i)
        ::sigaction(kSignals[i], &handlersBefore[i], nullptr);
}

void OnSignal(int signal) {
    received = signal;
    requested = true;
    Restore();  // so that the next one is not blocked
}

}  // namespace

Interruption::Interruption() {
    requested = false;
    received = 0;
    struct sigaction action = {};
    action.sa_handler = OnSignal;  // without SA_RESTART: a blocking call returns
    for (const int signal : kSignals) ::sigaddset(&action.sa_mask, signal);
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        ::sigaction(kSignals[i], nullptr, &handlersBefore[i]);
        if (handlersBefore[i].sa_handler != SIG_IGN) ::sigaction(kSignals[i], &action, nullptr);
    }
}

Interruption::~Interruption() { Restore(); }

const std::atomic<bool>& Interruption::IsRequested() const { return requested; }

std::optional<int> Interruption::Signal() const {
    const int signal = received;
    return signal == 0 ? std::nullopt : std::optional(signal);
}

}  // namespace cli
