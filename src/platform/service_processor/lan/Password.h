// A password, read from its file for one use.
#pragma once

#include <platform/service_processor/TransportError.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <string>

namespace platform {

// What a file holds, as its errors say.
struct SecretKind {
    const char* name;     // of the setting, without its "_file"
    const char* content;  // in the file
    TroubleCode trouble;
};

constexpr SecretKind kPasswordFile{
    .name = "password", .content = "password", .trouble = TroubleCode::PasswordFile};
constexpr SecretKind kKeyFile{.name = "k_g", .content = "key", .trouble = TroubleCode::KeyFile};

// The first line of the file, without its line end. The text is wiped when the object ends.
class Password {
public:
    // No password.
    Password() = default;

    // An empty name of a file: no password. Throws TransportError when the file cannot be read, is
    // not a regular file, may be read by others than its owner, has an empty first line, or one of
    // more than `longest` bytes.
    Password(const std::string& file, std::size_t longest, SecretKind kind = kPasswordFile);

    Password(const Password&) = delete;
    Password& operator=(const Password&) = delete;
    ~Password();

    // Ends with a NUL.
    const char* Text() const { return text.data(); }
    unsigned int Length() const { return static_cast<unsigned int>(std::strlen(Text())); }

private:
    std::array<char, 256> text{};
};

}  // namespace platform
