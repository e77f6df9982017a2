#include "ProcessState.h"

#include <sys/stat.h>

#include <clocale>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <iterator>

namespace {

std::string FileModeMask() {
    const mode_t mask = umask(0);
    umask(mask);
    return std::to_string(mask);
}

std::string ThreadCount() {
    using Folder = std::filesystem::directory_iterator;
    return std::to_string(std::distance(Folder("/proc/self/task"), Folder()));
}

std::string SignalAction(int number) {
    struct sigaction action {};
    if (sigaction(number, nullptr, &action) != 0) return "not to be had";
    return std::to_string(reinterpret_cast<std::uintptr_t>(action.sa_sigaction)) + " with flags " +
           std::to_string(action.sa_flags);
}

}  // namespace

std::map<std::string, std::string> ProcessState() {
    std::map<std::string, std::string> state{
        {"locale", std::setlocale(LC_ALL, nullptr)},
        {"file mode mask", FileModeMask()},
        {"working folder", std::filesystem::current_path().string()},
        {"number of threads", ThreadCount()},
    };
    for (int number = 1; number <= SIGRTMAX; ++number)
        state["signal " + std::to_string(number)] = SignalAction(number);
    return state;
}
