// Bytes, times and completion codes as log lines and errors show them.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace platform {

// "3a" for 58.
std::string HexadecimalDigits(std::uint8_t byte);

// "0x3a" for 58.
std::string Hexadecimal(std::uint8_t byte);

// "4 s", "1.5 s".
std::string InSeconds(std::chrono::milliseconds time);

// " (the controller is busy)", with the blank; nothing for code 0.
std::string Meaning(std::uint8_t completionCode);

}  // namespace platform
