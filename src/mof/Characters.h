// The text that the lexer walks over, character by character, and the classes of ASCII characters
// (those of <cctype> depend on the locale).
#pragma once

#include <mof/Place.h>

#include <string>
#include <string_view>

namespace mof {

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr bool IsHexDigit(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
constexpr bool IsNameCharacter(char c) { return IsLetter(c) || IsDigit(c) || c == '_'; }
constexpr bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

// A position in a text that knows its line and column. At the end it sees the character NUL.
class Characters {
public:
    // `content` must outlive this. A leading UTF-8 byte order mark is skipped.
    Characters(std::string_view content, const std::string& fileName);

    bool AtEnd() const { return offset >= text.size(); }
    char Peek(std::size_t ahead = 0) const;
    bool StartsWith(std::string_view prefix) const {
        return text.substr(offset).starts_with(prefix);
    }
    char Take();
    void Skip(std::size_t count);

    template <class Predicate>
    std::string_view TakeWhile(Predicate predicate) {
        const std::size_t start = offset;
        while (!AtEnd() && predicate(Peek())) {
            Take();
        }
        return text.substr(start, offset - start);
    }

    const Place& Here() const { return place; }

private:
    std::string_view text;
    std::size_t offset = 0;
    Place place;
};

}  // namespace mof
