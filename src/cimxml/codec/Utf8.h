// Texts as XML can carry them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace cimxml {

// The bytes of the character at the text's beginning; 0 when they are not UTF-8 of a character that
// XML allows.
std::size_t CharacterLength(std::string_view text);

// True when XML can carry every character of the text.
bool IsXmlText(std::string_view text);

// The UTF-8 of one UTF-16 code unit.
std::string FromChar16(std::uint16_t unit);

}  // namespace cimxml
