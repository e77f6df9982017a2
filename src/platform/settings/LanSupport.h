// The possible settings of a LAN controller: what FreeIPMI supports.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

bool IsSupportedCipherSuite(int suite);
inline constexpr int kLastCipherSuite = 17;
inline constexpr char kCipherSuitesInWords[] = "0 to 3, 6 to 8, 11, 12 and 15 to 17";

// Lengths are in bytes. A protocol is "2.0" or "1.5".
inline constexpr std::size_t kLongestUserName = 16;
std::size_t LongestPassword(std::string_view protocol);

// By FreeIPMI's names.
const std::vector<std::string>& WorkaroundNames(std::string_view protocol);

// "user", "operator" and "administrator", and IPMI's number of such a name.
const std::vector<std::string>& PrivilegeLevelNames();
std::uint8_t PrivilegeLevelOf(std::string_view name);

}  // namespace platform
