#include <mof/EscapeSequence.h>
#include <mof/Lexer.h>
#include <mof/Number.h>

#include <array>
#include <cstdio>

namespace mof {

namespace {

constexpr std::string_view kSymbols = "{}[]():;,=$#";

[[noreturn]] void FailAtStrayCharacter(char stray, const Place& place) {
    constexpr char kFirstPrintable = 0x20;
    constexpr char kLastPrintable = 0x7E;
    if (stray >= kFirstPrintable && stray <= kLastPrintable) {
        Fail(place, std::string("The character '") + stray + "' has no meaning in MOF.");
    }
    std::array<char, 8> hex{};
    std::snprintf(hex.data(), hex.size(), "0x%02x", static_cast<unsigned char>(stray));
    Fail(place, std::string("The byte ") + hex.data() + " has no meaning in MOF outside of texts.");
}

// "1e-5": the sign of an exponent belongs to the number, that in "0x1e-5" does not.
bool IsExponentSign(char c, const std::string& numberSoFar) {
    const bool isHexadecimal = numberSoFar.find_first_of("xX") != std::string::npos;
    const char last = numberSoFar.back();
    return (c == '+' || c == '-') && (last == 'e' || last == 'E') && !isHexadecimal;
}

}  // namespace

Token Lexer::Next() {
    SkipBlanksAndComments();
    const char first = characters.Peek();
    const Place start = characters.Here();
    if (characters.AtEnd()) {
        return {TokenKind::End, "", {}, start};
    }
    if (IsLetter(first) || first == '_') {
        return {TokenKind::Name, std::string(characters.TakeWhile(IsNameCharacter)), {}, start};
    }
    if (first == '"' || first == '\'') {
        return TakeText();
    }
    if (IsDigit(first) || first == '+' || first == '-' || first == '.') {
        return TakeNumber();
    }
    if (kSymbols.find(first) == std::string_view::npos) {
        FailAtStrayCharacter(first, start);
    }
    return {TokenKind::Symbol, std::string(1, characters.Take()), {}, start};
}

void Lexer::SkipBlanksAndComments() {
    for (;;) {
        characters.TakeWhile(IsSpace);
        if (characters.StartsWith("//")) {
            characters.TakeWhile([](char c) { return c != '\n'; });
        } else if (characters.StartsWith("/*")) {
            SkipBlockComment();
        } else {
            return;
        }
    }
}

void Lexer::SkipBlockComment() {
    const Place start = characters.Here();
    characters.Skip(2);
    while (!characters.StartsWith("*/")) {
        if (characters.AtEnd()) {
            Fail(start, "The comment that begins here is not closed.");
        }
        characters.Take();
    }
    characters.Skip(2);
}

Token Lexer::TakeText() {
    const Place start = characters.Here();
    const char quote = characters.Take();
    std::string text;
    std::size_t characterCount = 0;
    while (characters.Peek() != quote) {
        if (characters.AtEnd() || characters.Peek() == '\n') {
            Fail(start, "The text that begins here is not closed on its line.");
        }
        const std::size_t column = characters.Here().column;
        if (characters.Peek() == '\\') {
            text += TakeEscapeSequence(characters);
            ++characterCount;
        } else {
            text += characters.Take();
            characterCount += characters.Here().column - column;
        }
    }
    characters.Take();
    if (quote == '\'' && characterCount != 1) {
        Fail(start, "Exactly one character stands between single quotes.");
    }
    return {TokenKind::Text, quote + text + quote, text, start};
}

Token Lexer::TakeNumber() {
    const Place start = characters.Here();
    std::string number(1, characters.Take());
    while (IsNameCharacter(characters.Peek()) || characters.Peek() == '.' ||
           IsExponentSign(characters.Peek(), number)) {
        number += characters.Take();
    }
    return {TokenKind::Number, number, ParseNumber(number, start), start};
}

}  // namespace mof
