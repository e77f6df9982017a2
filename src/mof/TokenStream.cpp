#include <mof/Names.h>
#include <mof/TokenStream.h>

#include <utility>

namespace mof {

Token TokenStream::Take() { return std::exchange(next, lexer.Next()); }

bool TokenStream::AtSymbol(char symbol) const {
    return next.kind == TokenKind::Symbol && next.spelling[0] == symbol;
}

bool TokenStream::AtKeyword(std::string_view keyword) const {
    return next.kind == TokenKind::Name && SameName(next.spelling, keyword);
}

bool TokenStream::Accept(char symbol) {
    const bool found = AtSymbol(symbol);
    if (found) {
        Take();
    }
    return found;
}

bool TokenStream::AcceptKeyword(std::string_view keyword) {
    const bool found = AtKeyword(keyword);
    if (found) {
        Take();
    }
    return found;
}

void TokenStream::Expect(char symbol) {
    if (!Accept(symbol)) {
        FailExpected(std::string("'") + symbol + "'");
    }
}

void TokenStream::ExpectKeyword(std::string_view keyword) {
    if (!AcceptKeyword(keyword)) {
        FailExpected("'" + std::string(keyword) + "'");
    }
}

Token TokenStream::ExpectName(const std::string& what) {
    if (next.kind != TokenKind::Name) {
        FailExpected(what);
    }
    return Take();
}

Token TokenStream::ExpectText(const std::string& what) {
    if (next.kind != TokenKind::Text) {
        FailExpected(what);
    }
    return Take();
}

void TokenStream::FailExpected(const std::string& what) const {
    Fail(next.place, "Expected " + what + " but found " + Describe(next) + ".");
}

}  // namespace mof
