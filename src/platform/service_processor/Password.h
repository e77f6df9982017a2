// A password, read from its file for one use.
#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace platform {

// The first line of the file, without its line end. The text is wiped when the object ends.
class Password {
public:
    // No password.
    Password() = default;

    // Throws TransportError when the file cannot be read, is no regular file, may be read by others
    // than its owner, has an empty first line, or one of more than `longest` bytes.
    Password(const std::string& file, std::size_t longest);

    Password(const Password&) = delete;
    Password& operator=(const Password&) = delete;
    ~Password();

    // Ends with a NUL.
    const char* Text() const { return text.data(); }

private:
    std::array<char, 256> text{};
};

}  // namespace platform
