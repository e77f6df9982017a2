// A byte as log lines and errors show it.
#pragma once

#include <cstdint>
#include <string>

namespace platform {

// "3a" for 58.
inline std::string HexadecimalDigits(std::uint8_t byte) {
    constexpr char kDigits[] = "0123456789abcdef";
    return {kDigits[byte >> 4], kDigits[byte & 0x0F]};
}

// "0x3a" for 58.
inline std::string Hexadecimal(std::uint8_t byte) { return "0x" + HexadecimalDigits(byte); }

}  // namespace platform
