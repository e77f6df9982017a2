// Writes log lines without ever making the server wait: a reader that is too slow loses lines,
// which are counted.
#pragma once

#include <cimxml/net/Descriptor.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

namespace cimxml {

class LogQueue {
public:
    // Lines go to the descriptor, which must outlive this; the prefix begins those of its own.
    // Throws std::system_error.
    LogQueue(int openDescriptor, std::string itsPrefix);

    // Gives the reader a second to take what there is.
    ~LogQueue();

    LogQueue(const LogQueue&) = delete;
    LogQueue& operator=(const LogQueue&) = delete;

    // Takes a line, with the line feed at its end. May be called from several threads at once.
    void Write(const std::string& line);

    // Waits until all lines are written, for a second at most.
    void Flush();

    std::uint64_t Lost() const { return lost; }

private:
    void Run();
    bool WriteSome();
    void TellLost();

    const int descriptor;
    const std::string prefix;
    const Descriptor wakeUp;  // an event: there are lines, or the end
    std::atomic<std::uint64_t> lost = 0;
    std::atomic<bool> isEnding = false;
    std::mutex mutex;  // guards what follows; held for moments
    std::string waiting;
    std::uint64_t told = 0;  // of the lost lines
    std::thread writer;
};

}  // namespace cimxml
