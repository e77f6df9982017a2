// Lines for people on the standard error output.
#pragma once

#include <string>

namespace cli {

// One line, or several, after the program's name. What could upset a terminal is escaped.
void PrintError(const std::string& message);

// What PrintError() prints, for those who write it themselves.
std::string ErrorLine(const std::string& message);

}  // namespace cli
