// Key material, wiped on destruction.
#pragma once

#include <string.h>

#include <array>
#include <cstdint>

namespace platform::lan {

class SecretBytes {
public:
    SecretBytes() = default;
    SecretBytes(const SecretBytes&) = default;
    SecretBytes& operator=(const SecretBytes&) = default;
    ~SecretBytes() { explicit_bzero(bytes.data(), bytes.size()); }

    const void* Data() const { return length == 0 ? nullptr : bytes.data(); }
    unsigned int Length() const { return length; }

    // Room for any key of IPMI.
    void* Room() { return bytes.data(); }
    unsigned int RoomSize() const { return static_cast<unsigned int>(bytes.size()); }
    void SetLength(unsigned int written) { length = written; }

private:
    std::array<std::uint8_t, 64> bytes{};
    unsigned int length = 0;
};

}  // namespace platform::lan
