#include <mof/EscapeSequence.h>

namespace mof {

namespace {

std::string ToUtf8(unsigned codePoint) {
    const auto byte = [](unsigned value) { return static_cast<char>(value); };
    if (codePoint < 0x80) {
        return {byte(codePoint)};
    }
    if (codePoint < 0x800) {
        return {byte(0xC0 | codePoint >> 6), byte(0x80 | (codePoint & 0x3F))};
    }
    return {byte(0xE0 | codePoint >> 12), byte(0x80 | (codePoint >> 6 & 0x3F)),
            byte(0x80 | (codePoint & 0x3F))};
}

std::string TakeHexadecimal(Characters& characters, const Place& start) {
    constexpr std::size_t kMostDigits = 4;
    std::string digits;
    while (digits.size() < kMostDigits && IsHexDigit(characters.Peek())) {
        digits += characters.Take();
    }
    if (digits.empty()) {
        Fail(start, "One to four hexadecimal digits follow '\\x'.");
    }
    const auto codePoint = static_cast<unsigned>(std::stoul(digits, nullptr, 16));
    const bool isHalfOfAPair = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (codePoint == 0 || isHalfOfAPair) {
        Fail(start, "'\\x" + digits + "' is not a character.");
    }
    return ToUtf8(codePoint);
}

}  // namespace

std::string TakeEscapeSequence(Characters& characters) {
    const Place start = characters.Here();
    characters.Take();
    if (characters.AtEnd() || characters.Peek() == '\n') {
        Fail(start, "The line ends within an escape sequence.");
    }
    const char letter = characters.Take();
    switch (letter) {
        case 'b':
            return "\b";
        case 't':
            return "\t";
        case 'n':
            return "\n";
        case 'f':
            return "\f";
        case 'r':
            return "\r";
        case '"':
        case '\'':
        case '\\':
            return {letter};
        case 'x':
        case 'X':
            return TakeHexadecimal(characters, start);
        default:
            Fail(start, std::string("'\\") + letter + "' is not an escape sequence.");
    }
}

}  // namespace mof
