#include <cli/Printable.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace cli {

namespace {

// A character's code, and how many bytes it takes. No bytes: there is no valid UTF-8.
struct Character {
    std::uint32_t code = 0;
    std::size_t length = 0;
};

// The first byte of each length: its fixed bits, and the least code that needs that many bytes.
struct Form {
    unsigned char mask;
    unsigned char lead;
    std::uint32_t least;
};

constexpr Form kForms[] = {
    {0x80, 0x00, 0}, {0xE0, 0xC0, 0x80}, {0xF0, 0xE0, 0x800}, {0xF8, 0xF0, 0x10000}};
constexpr unsigned int kBitsOfEach = 6;  // that a byte after the first one holds
constexpr unsigned char kLowBits = 0x3F;
constexpr std::uint32_t kLastCode = 0x10FFFF;

bool IsContinuation(unsigned char byte) { return (byte & ~kLowBits) == 0x80; }

bool IsSurrogate(std::uint32_t code) { return code >= 0xD800 && code <= 0xDFFF; }

bool IsControl(std::uint32_t code) { return code < 0x20 || (code >= 0x7F && code <= 0x9F); }

// The character at the text's beginning, which is not empty.
Character FirstOf(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    std::size_t length = 0;
    for (const Form& form : kForms) {
        ++length;
        if ((first & form.mask) != form.lead) continue;
        if (text.size() < length) return {};
        std::uint32_t code = first & static_cast<unsigned char>(~form.mask);
        for (const char letter : text.substr(1, length - 1)) {
            const auto byte = static_cast<unsigned char>(letter);
            if (!IsContinuation(byte)) return {};
            code = (code << kBitsOfEach) | (byte & kLowBits);
        }
        const bool isValid = code >= form.least && code <= kLastCode && !IsSurrogate(code);
        return isValid ? Character{code, length} : Character{};
    }
    return {};
}

void AppendEscaped(std::string& text, std::string_view bytes) {
    constexpr const char* kDigits = "0123456789abcdef";
    for (const char letter : bytes) {
        const auto byte = static_cast<unsigned char>(letter);
        text.append("\\x").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 0xF]);
    }
}

std::string Escaped(std::string_view text, bool keepsLineFeeds) {
    std::string printable;
    while (!text.empty()) {
        const Character character = FirstOf(text);
        const std::string_view bytes = text.substr(0, std::max<std::size_t>(character.length, 1));
        const bool isLineFeed = bytes == "\n";
        if (character.length == 0 || (IsControl(character.code) && !(isLineFeed && keepsLineFeeds)))
            AppendEscaped(printable, bytes);
        else
            printable.append(bytes);
        text.remove_prefix(bytes.size());
    }
    return printable;
}

}  // namespace

std::string Printable(std::string_view text) { return Escaped(text, true); }

std::string PrintableLine(std::string_view text) { return Escaped(text, false); }

}  // namespace cli
