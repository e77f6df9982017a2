#include <cimxml/load/LogQueue.h>
#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <climits>
#include <system_error>

namespace cimxml {

namespace {

constexpr std::size_t kMostWaiting = std::size_t{256} << 10;  // bytes
constexpr std::chrono::seconds kGoodbyeTime{1};

}  // namespace

LogQueue::LogQueue(int openDescriptor, std::string itsPrefix)
    : descriptor(openDescriptor),
      prefix(std::move(itsPrefix)),
      wakeUp(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (!wakeUp.IsOpen()) throw std::system_error(errno, std::generic_category(), "eventfd");
    writer = std::thread([this] { Run(); });
}

LogQueue::~LogQueue() {
    Flush();
    isEnding = true;
    ::eventfd_write(wakeUp.Get(), 1);
    writer.join();
}

void LogQueue::Write(const std::string& line) {
    {
        const std::lock_guard lock(mutex);
        if (waiting.size() + line.size() > kMostWaiting) {
            ++lost;
            return;
        }
        waiting += line;
    }
    ::eventfd_write(wakeUp.Get(), 1);
}

void LogQueue::Flush() {
    const auto end = std::chrono::steady_clock::now() + kGoodbyeTime;
    const auto isEmpty = [this] {
        const std::lock_guard lock(mutex);
        return waiting.empty();
    };
    while (!isEmpty() && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

// Writes what the descriptor takes without blocking; false when nothing is left.
bool LogQueue::WriteSome() {
    std::string block;
    {
        const std::lock_guard lock(mutex);
        // A pipe that is ready takes this many bytes without blocking the writer.
        block = waiting.substr(0, PIPE_BUF);
    }
    if (block.empty()) return false;
    const ssize_t count = ::write(descriptor, block.data(), block.size());
    const bool isLost = count < 0 && errno != EINTR && errno != EAGAIN;  // no reader is left
    const std::lock_guard lock(mutex);
    waiting.erase(0, isLost ? block.size() : static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return true;
}

// Adds a line on the lines that were lost, once there is room for it.
void LogQueue::ReportLost() {
    const std::lock_guard lock(mutex);
    if (told == lost || waiting.size() > kMostWaiting / 2) return;
    waiting += prefix + std::to_string(lost - told) +
               " log lines were lost: standard error was not read in time.\n";
    told = lost;
}

void LogQueue::Run() {
    bool hasLines = false;
    while (!isEnding) {
        pollfd wanted[] = {{wakeUp.Get(), POLLIN, 0}, {hasLines ? descriptor : -1, POLLOUT, 0}};
        ::poll(wanted, 2, -1);
        eventfd_t count = 0;
        if (wanted[0].revents != 0 && ::eventfd_read(wakeUp.Get(), &count) == 0) hasLines = true;
        if (wanted[1].revents == 0) continue;
        ReportLost();
        hasLines = WriteSome();
    }
}

}  // namespace cimxml
