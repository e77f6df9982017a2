#include <platform/service_processor/HostRandomNumbers.h>
#include <stdlib.h>

#include <array>
#include <mutex>

namespace platform {

namespace {

// initstate() writes numbers of four bytes into it.
using State = std::array<char, 128>;

struct Replacement {
    std::mutex lock;  // guards all below
    int users = 0;
    char* before = nullptr;
    alignas(4) State state{};
};

// Never destroyed: a test object that outlives static objects may still open a session.
Replacement& TheReplacement() {
    static Replacement& replacement = *new Replacement;
    return replacement;
}

}  // namespace

HostRandomNumbers::HostRandomNumbers() {
    constexpr unsigned int kAnySeed = 1;
    Replacement& replacement = TheReplacement();
    const std::lock_guard guard(replacement.lock);
    if (replacement.users++ > 0) return;
    replacement.before = initstate(kAnySeed, replacement.state.data(), replacement.state.size());
}

HostRandomNumbers::~HostRandomNumbers() {
    Replacement& replacement = TheReplacement();
    const std::lock_guard guard(replacement.lock);
    if (--replacement.users == 0) setstate(replacement.before);
}

}  // namespace platform
