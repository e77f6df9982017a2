// The clock of the time limits, as tests set it: a program that links this gets Now() from here.
#pragma once

#include <platform/service_processor/Clock.h>

class FakeClock {
public:
    static inline platform::Time now{};

    static void Pass(std::chrono::milliseconds time) { now += time; }
};
