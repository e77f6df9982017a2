// The clock of every time limit here. Tests link a function of their own.
#pragma once

#include <chrono>

namespace platform {

using Time = std::chrono::steady_clock::time_point;

Time Now();

}  // namespace platform
