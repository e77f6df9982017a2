// Bytes of network packets.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace platform::lan {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

// More than any IPMI packet has.
constexpr std::size_t kLongestPacket = 4096;

// The number in the four bytes from `start`, which must be there, least significant byte first.
inline std::uint32_t ReadNumber(ByteView bytes, std::size_t start) {
    std::uint32_t number = 0;
    for (std::size_t index = 4; index-- > 0;) number = number << 8 | bytes[start + index];
    return number;
}

// Appends the number as ReadNumber() reads it.
inline void AppendNumber(Bytes& bytes, std::uint32_t number) {
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<std::uint8_t>(number >> shift));
    }
}

// Random bytes from the system that cannot be guessed; rand() of the process is left alone. Throws
// std::system_error.
Bytes RandomBytes(std::size_t count);

// Never 0.
std::uint32_t RandomId();

}  // namespace platform::lan
