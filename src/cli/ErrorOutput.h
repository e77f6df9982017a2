// Lines for people on the standard error.
#pragma once

#include <string>

namespace cli {

// One line, or several, after the program's name. Control characters are escaped.
void PrintError(const std::string& message);

// What PrintError() prints, for callers with an output of their own.
std::string ErrorLine(const std::string& message);

}  // namespace cli
