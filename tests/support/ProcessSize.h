// What this process holds: for tests that look for leaks.
#pragma once

#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

struct ProcessSize {
    std::ptrdiff_t descriptors = 0;  // open ones
    std::ptrdiff_t memory = 0;       // resident bytes

    static ProcessSize Now() {
        const std::filesystem::directory_iterator open("/proc/self/fd");
        std::ifstream statistics("/proc/self/statm");
        std::ptrdiff_t total = 0;
        std::ptrdiff_t resident = 0;
        if (!(statistics >> total >> resident)) {
            throw std::runtime_error("/proc/self/statm cannot be read.");
        }
        return {.descriptors = std::distance(begin(open), end(open)),
                .memory = resident * sysconf(_SC_PAGESIZE)};
    }

    std::ptrdiff_t GrownFrom(const ProcessSize& before) const { return memory - before.memory; }
};

// The address sanitizer keeps freed memory for a while.
#ifdef __SANITIZE_ADDRESS__
constexpr std::ptrdiff_t kMemoryThatMayGrow = 512 << 20;
#else
constexpr std::ptrdiff_t kMemoryThatMayGrow = 1 << 20;
#endif
