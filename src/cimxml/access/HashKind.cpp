#include <cimxml/access/HashKind.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace cimxml {

namespace {

constexpr std::uint64_t kMostMemory = std::uint64_t{32} << 20;  // bytes
constexpr std::string_view kRounds = "rounds=";
// The digits of crypt's numbers.
constexpr std::string_view kDigits =
    "./0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

// The parts between the dollar signs; the first one is the part before the first sign.
std::vector<std::string> Parts(std::string_view hash) {
    std::vector<std::string> parts(1);
    for (const char letter : hash) {
        if (letter == '$')
            parts.emplace_back();
        else
            parts.back() += letter;
    }
    return parts;
}

// True for yescrypt's usual flavour with a memory of 128 bytes, times N, times r, within bounds.
bool IsBounded(const std::string& cost) {
    if (cost.size() != 3 || cost[0] != 'j') return false;  // flavour, N, r
    const auto logN = kDigits.find(cost[1]) + 1;
    const auto r = kDigits.find(cost[2]) + 1;
    constexpr std::size_t kMostLogN = 18;  // where r = 1
    if (logN > kMostLogN || r > kDigits.size()) return false;
    return (std::uint64_t{128} << logN) * r <= kMostMemory;
}

}  // namespace

std::string KindOf(const std::string& hash) {
    const std::vector<std::string> parts = Parts(hash);
    if (parts.size() < 4 || !parts[0].empty()) return {};
    const std::string& method = parts[1];
    const bool isYescrypt = method == "y" || method == "gy";
    const bool isSha = method == "5" || method == "6";
    const bool saysCost = isYescrypt || parts[2].starts_with(kRounds);
    const std::string& salt = parts[saysCost ? 3 : 2];
    if (salt.empty() || !(isSha || (isYescrypt && IsBounded(parts[2])))) return {};
    return "$" + method + (saysCost ? "$" + parts[2] : "");
}

}  // namespace cimxml
