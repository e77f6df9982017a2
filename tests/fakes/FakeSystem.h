// Scripted functions of the C library: sleep, rand and srand.
#pragma once

#include <deque>
#include <functional>
#include <vector>

class FakeSystem {
public:
    // Nothing scripted, nothing recorded.
    static void Reset();

    static inline std::vector<unsigned int> pauses;  // seconds of every sleep; none is waited for
    static inline std::function<void()> onSleep;     // called in each sleep
    static inline std::deque<int> randomNumbers;     // what rand gives, in order; then 0
    static inline int seedings = 0;                  // calls of srand
};
