// The text of a small file.
#pragma once

#include <cstddef>
#include <string>

namespace platform {

// Larger than any settings file; it stops reading an endless device.
inline constexpr std::size_t kLongestFileText = std::size_t{1} << 20;

// The whole text of a file of at most `longest` bytes. Throws std::system_error, whose code is the
// system's reason.
std::string ReadFileText(const std::string& path, std::size_t longest = kLongestFileText);

// The system's reason in words, such as "No such file or directory".
std::string ReasonText(int errorNumber);

}  // namespace platform
