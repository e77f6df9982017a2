#include <platform/service_processor/TransportError.h>
#include <platform/service_processor/lan/BmcKey.h>
#include <platform/service_processor/lan/Password.h>

#include <algorithm>
#include <charconv>
#include <string_view>

namespace platform::lan {

namespace {

constexpr std::string_view kPrefix = "0x";
constexpr std::size_t kLongestKey = 20;
constexpr std::size_t kLongestLine = 2 + 2 * kLongestKey;

[[noreturn]] void RefuseKey(const std::string& file, const std::string& why) {
    throw TransportError(TroubleCode::KeyFile, "The k_g file " + file + " " + why,
                         "Write the key as 0x and up to 40 hexadecimal digits, two for each byte, "
                         "or as a text of up to 20 bytes.");
}

// False when the text is not made of pairs of digits.
bool ReadDigits(std::string_view digits, SecretBytes& bytes) {
    if (digits.empty() || digits.size() % 2 != 0) return false;
    auto* byte = static_cast<std::uint8_t*>(bytes.Room());
    for (; !digits.empty(); digits.remove_prefix(2), ++byte) {
        const char* const end = digits.data() + 2;
        if (std::from_chars(digits.data(), end, *byte, 16).ptr != end) return false;
    }
    return true;
}

}  // namespace

SecretBytes ReadBmcKey(const std::string& file) {
    SecretBytes bytes;
    if (file.empty()) return bytes;
    const Password line(file, kLongestLine, kKeyFile);
    const std::string_view text(line.Text(), line.Length());
    if (text.starts_with(kPrefix)) {
        const std::string_view digits = text.substr(kPrefix.size());
        if (!ReadDigits(digits, bytes)) RefuseKey(file, "has other than pairs of digits after 0x.");
        bytes.SetLength(static_cast<unsigned int>(digits.size() / 2));
        return bytes;
    }
    if (text.size() > kLongestKey) RefuseKey(file, "has a text of more than 20 bytes.");
    std::ranges::copy(text, static_cast<char*>(bytes.Room()));
    bytes.SetLength(static_cast<unsigned int>(text.size()));
    return bytes;
}

}  // namespace platform::lan
