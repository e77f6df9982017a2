#include <platform/settings/LanSupport.h>

#include <algorithm>
#include <array>

namespace platform {

namespace {

constexpr std::array kCipherSuites = {0, 1, 2, 3, 6, 7, 8, 11, 12, 15, 16, kLastCipherSuite};
constexpr std::uint8_t kLowestPrivilegeLevel = 2;  // "user"; 1 is for what needs no session

}  // namespace

bool IsSupportedCipherSuite(int suite) {
    return std::ranges::find(kCipherSuites, suite) != kCipherSuites.end();
}

std::size_t LongestPassword(std::string_view protocol) { return protocol == "1.5" ? 16 : 20; }

const std::vector<std::string>& WorkaroundNames(std::string_view protocol) {
    static const std::vector<std::string> k15 = {
        "authcap",         "endianseq",       "forcepermsg",   "idzero",
        "noauthcodecheck", "nochecksumcheck", "unexpectedauth"};
    static const std::vector<std::string> k20 = {
        "authcap", "integritycheckvalue", "intel20", "nochecksumcheck", "opensesspriv",
        "sun20",   "supermicro20"};
    return protocol == "1.5" ? k15 : k20;
}

const std::vector<std::string>& PrivilegeLevelNames() {
    static const std::vector<std::string> names = {"user", "operator", "administrator"};
    return names;
}

std::uint8_t PrivilegeLevelOf(std::string_view name) {
    const auto& names = PrivilegeLevelNames();
    return static_cast<std::uint8_t>(kLowestPrivilegeLevel +
                                     (std::ranges::find(names, name) - names.begin()));
}

}  // namespace platform
