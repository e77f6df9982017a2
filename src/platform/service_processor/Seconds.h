// A time as errors show it.
#pragma once

#include <chrono>
#include <string>

namespace platform {

// "4 s", "1.5 s".
inline std::string InSeconds(std::chrono::milliseconds time) {
    const auto tenths = (time.count() + 50) / 100;
    std::string text = std::to_string(tenths / 10);
    if (tenths % 10 != 0) text += "." + std::to_string(tenths % 10);
    return text + " s";
}

}  // namespace platform
