// The catalog's fallback machine entries: their texts serve every machine of their controller
// family.
#pragma once

#include <string_view>

inline constexpr std::string_view GEN_MACHINE_TYPE = "GENERIC_QUV";
inline constexpr std::string_view GEN_MACHINE_TYPE_OXC = "GENERIC_QUV_OXC";
