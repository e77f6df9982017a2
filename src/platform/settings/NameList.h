// Lists of names in a sentence about what is allowed.
#pragma once

#include <string>
#include <vector>

namespace platform {

// "is a", "are a and b", "are a, b and c".
std::string PlainNames(const std::vector<std::string>& names);

// The same with every name in double quotes.
std::string QuotedNames(std::vector<std::string> names);

}  // namespace platform
