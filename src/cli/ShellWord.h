// Command lines for people to copy.
#pragma once

#include <string>

namespace cli {

// The word as a shell reads it: quoted where it holds anything but plain characters.
std::string ShellWord(const std::string& word);

}  // namespace cli
