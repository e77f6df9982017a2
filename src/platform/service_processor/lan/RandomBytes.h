// Numbers that nobody can guess.
#pragma once

#include <platform/service_processor/lan/Bytes.h>

namespace platform::lan {

// From the system; rand() of the process is left alone. Throws std::system_error.
Bytes RandomBytes(std::size_t count);

// Other than 0.
std::uint32_t RandomId();

}  // namespace platform::lan
