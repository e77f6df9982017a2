#include <platform/diagnostics/EscapedText.h>

#include <cstddef>

namespace NQUVZDX20 {

namespace {

// How many bytes the control character at the text's beginning has; 0 when there is none.
std::size_t ControlLength(std::string_view text) {
    constexpr unsigned char kFirstPrintable = 0x20;
    constexpr unsigned char kDelete = 0x7F;
    constexpr unsigned char kLeadOfLatin1 = 0xC2;  // U+0080 to U+00BF, whose last byte is the same
    constexpr unsigned char kLastControl = 0x9F;
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    if (byte(0) < kFirstPrintable || byte(0) == kDelete) return 1;
    if (byte(0) != kLeadOfLatin1 || text.size() < 2) return 0;
    return byte(1) > kDelete && byte(1) <= kLastControl ? 2 : 0;
}

std::string Escaped(std::string_view control) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    if (control == "\n") return "\\n";
    std::string escaped;
    for (const char character : control) {
        const auto byte = static_cast<unsigned char>(character);
        escaped += {'\\', 'x', kDigits[byte / kDigits.size()], kDigits[byte % kDigits.size()]};
    }
    return escaped;
}

}  // namespace

std::string EscapeControls(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const std::size_t length = ControlLength(text);
        if (length == 0) {
            line += text.front();
            text.remove_prefix(1);
        } else {
            line += Escaped(text.substr(0, length));
            text.remove_prefix(length);
        }
    }
    return line;
}

}  // namespace NQUVZDX20
