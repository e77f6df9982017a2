// Waiting for descriptors, until a point in time.
#pragma once

#include <poll.h>

#include <chrono>
#include <utility>

namespace cimxml {

using Clock = std::chrono::steady_clock;
using Deadline = Clock::time_point;

// Waits for events (POLLIN, POLLOUT) of the descriptor. False when the time is over.
bool WaitFor(int descriptor, short events, Deadline deadline);

// Waits until one of them can be read; -1 stands for none. Both false: the time is over.
std::pair<bool, bool> WaitForEither(int first, int second, Deadline deadline);

}  // namespace cimxml
