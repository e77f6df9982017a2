// A byte as log lines show it.
#pragma once

#include <cstdint>
#include <string>

namespace platform {

// "0x3a" for 58.
inline std::string Hexadecimal(std::uint8_t byte) {
    constexpr char kDigits[] = "0123456789abcdef";
    return {'0', 'x', kDigits[byte >> 4], kDigits[byte & 0x0F]};
}

}  // namespace platform
