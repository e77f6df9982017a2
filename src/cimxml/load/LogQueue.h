// Writes log lines without ever blocking the server: if the reader is too slow, lines are lost and
// counted.
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

    // Gives the reader one second to take the remaining lines.
    ~LogQueue();

    LogQueue(const LogQueue&) = delete;
    LogQueue& operator=(const LogQueue&) = delete;

    // Takes a line, with the line feed at its end. May be called from several threads concurrently.
    void Write(const std::string& line);

    // Waits until all lines are written, for a second at most.
    void Flush();

    std::uint64_t Lost() const { return lost; }

private:
    void Run();
    bool WriteSome();
    void ReportLost();

    const int descriptor;
    const std::string prefix;
    const Descriptor wakeUp;  // an event: there are lines, or the end
    std::atomic<std::uint64_t> lost = 0;
    std::atomic<bool> isEnding = false;
    std::mutex mutex;  // guards the members below; held for moments
    std::string waiting;
    std::uint64_t told = 0;  // of the lost lines
    std::thread writer;
};

}  // namespace cimxml
