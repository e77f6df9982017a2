// Text from files, firmware and users, made safe for a terminal.
#pragma once

#include <string>
#include <string_view>

namespace cli {

// Control characters (U+0000 to U+001F but the line feed, and U+007F to U+009F) and bytes that are
// not UTF-8 appear as \xNN, byte by byte; everything else stays as it is.
std::string Printable(std::string_view text);

// The same for places of one line: a line feed appears as \x0a.
std::string PrintableLine(std::string_view text);

}  // namespace cli
