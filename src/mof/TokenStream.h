// The tokens of a text with a view of the next one: what the parsers take from.
#pragma once

#include <mof/Lexer.h>
#include <mof/Token.h>

#include <string>
#include <string_view>

namespace mof {

class TokenStream {
public:
    // `text` must outlive the stream.
    TokenStream(std::string_view text, const std::string& fileName)
        : lexer(text, fileName), next(lexer.Next()) {}

    const Token& Peek() const { return next; }
    Token Take();

    bool AtSymbol(char symbol) const;
    bool AtKeyword(std::string_view keyword) const;

    // Takes the symbol or keyword if it comes next, and returns whether it did.
    bool Accept(char symbol);
    bool AcceptKeyword(std::string_view keyword);

    // Take what must come next, or throw Error. `what` names it, as "the name of a class".
    void Expect(char symbol);
    void ExpectKeyword(std::string_view keyword);
    Token ExpectName(const std::string& what);
    Token ExpectText(const std::string& what);

    // Throws "Expected <what> but found <the next token>."
    [[noreturn]] void FailExpected(const std::string& what) const;

private:
    Lexer lexer;
    Token next;
};

}  // namespace mof
