// Places in MOF texts, for error messages.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace mof {

// Line and column count from 1; a column is a character, not a byte.
struct Place {
    std::shared_ptr<const std::string> file;
    std::size_t line = 1;
    std::size_t column = 1;
};

// "file:line:column"
std::string ToText(const Place& place);

// Throws Error with the place and the message.
[[noreturn]] void Fail(const Place& place, const std::string& message);

}  // namespace mof
