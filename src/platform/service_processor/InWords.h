// What a completion code says, as log lines and errors add it.
#pragma once

#include <cstdint>
#include <string>

namespace platform {

// " (the controller is busy)", with the blank; nothing for code 0.
std::string Meaning(std::uint8_t completionCode);

}  // namespace platform
