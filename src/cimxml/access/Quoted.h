// Quotes text from clients for the log.
#pragma once

#include <string>
#include <string_view>

namespace cimxml {

// The text between apostrophes. Apostrophes, backslashes, control characters and bytes that are not
// ASCII are escaped, so that nothing in it looks like the end of the text or of the line.
std::string Quoted(std::string_view text);

}  // namespace cimxml
