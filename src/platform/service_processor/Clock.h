// The clock of all timeouts and deadlines here. Tests link their own function.
#pragma once

#include <chrono>

namespace platform {

using Time = std::chrono::steady_clock::time_point;

Time Now();

}  // namespace platform
