// CIM names: compared without regard to the case of ASCII letters, whatever the locale.
#pragma once

#include <string>
#include <string_view>

namespace mof {

bool SameName(std::string_view a, std::string_view b);

// The name in lower case: equal for all spellings of a name.
std::string FoldedName(std::string_view name);

}  // namespace mof
