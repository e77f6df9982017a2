#include <cimxml/codec/Utf8.h>

namespace cimxml {

namespace {

// Bytes of the sequence that the lead byte begins, and the lowest character that needs so many.
struct Sequence {
    std::size_t length;
    char32_t lead;
    char32_t lowest;
};

Sequence SequenceOf(unsigned char first) {
    if (first < 0x80) return {1, first, 0};
    if ((first & 0xE0) == 0xC0) return {2, first & 0x1FU, 0x80};
    if ((first & 0xF0) == 0xE0) return {3, first & 0x0FU, 0x800};
    if ((first & 0xF8) == 0xF0) return {4, first & 0x07U, 0x10000};
    return {0, 0, 0};
}

bool IsXmlCharacter(char32_t character) {
    if (character < 0x20) return character == '\t' || character == '\n' || character == '\r';
    if (character >= 0xD800 && character < 0xE000) return false;
    return character != 0xFFFE && character != 0xFFFF && character <= 0x10FFFF;
}

}  // namespace

std::size_t CharacterLength(std::string_view text) {
    if (text.empty()) return 0;
    const Sequence sequence = SequenceOf(static_cast<unsigned char>(text.front()));
    if (sequence.length == 0 || sequence.length > text.size()) return 0;
    char32_t character = sequence.lead;
    for (std::size_t at = 1; at < sequence.length; ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if ((byte & 0xC0) != 0x80) return 0;
        character = character << 6 | (byte & 0x3FU);
    }
    return character >= sequence.lowest && IsXmlCharacter(character) ? sequence.length : 0;
}

bool IsXmlText(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string FromChar16(std::uint16_t unit) {
    const auto tail = [&](int shift) { return static_cast<char>(0x80 | (unit >> shift & 0x3F)); };
    if (unit < 0x80) return {static_cast<char>(unit)};
    if (unit < 0x800) return {static_cast<char>(0xC0 | unit >> 6), tail(0)};
    return {static_cast<char>(0xE0 | unit >> 12), tail(6), tail(0)};
}

}  // namespace cimxml
