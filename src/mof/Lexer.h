// Splits a MOF text into tokens; comments and white space vanish.
#pragma once

#include <mof/Characters.h>
#include <mof/Token.h>

#include <string>
#include <string_view>

namespace mof {

class Lexer {
public:
    // `text` must outlive the lexer.
    Lexer(std::string_view text, const std::string& fileName) : characters(text, fileName) {}

    // The next token; at the end of the text an End token, again and again. Throws Error.
    Token Next();

private:
    void SkipBlanksAndComments();
    void SkipBlockComment();
    Token TakeText();
    Token TakeNumber();

    Characters characters;
};

}  // namespace mof
