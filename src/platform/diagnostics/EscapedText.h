// A text on one line.
#pragma once

#include <string>
#include <string_view>

namespace NQUVZDX20 {

// With the control characters escaped, so that a text can neither forge a line nor steer a
// terminal: a line feed as \n, another one as \x and its bytes (\x1b; U+009B as \xc2\x9b). The rest
// stays, also bytes that are not UTF-8.
std::string EscapeControls(std::string_view text);

}  // namespace NQUVZDX20
