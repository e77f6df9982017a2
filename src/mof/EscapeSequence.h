// Escape sequences in MOF's string and character literals.
#pragma once

#include <mof/Characters.h>

#include <string>

namespace mof {

// Takes the sequence at whose backslash `characters` stands and returns its character in UTF-8.
// Throws Error.
std::string TakeEscapeSequence(Characters& characters);

}  // namespace mof
