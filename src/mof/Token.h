// The tokens of MOF texts.
#pragma once

#include <mof/Model.h>
#include <mof/Place.h>

#include <string>

namespace mof {

enum class TokenKind {
    Name,    // identifiers and keywords: the parser tells keywords from names by their place
    Text,    // a string or character literal; `value` holds the text
    Number,  // `value` holds the number
    Symbol,  // one of { } [ ] ( ) : ; , = $ #
    End,     // of the text
};

struct Token {
    TokenKind kind = TokenKind::End;
    std::string spelling;  // as it stands in the file; of a Text without its escapes decoded
    Scalar value;
    Place place;
};

// How error messages name a token: "'class'", "the text \"abc\"", "the end of the file".
std::string Describe(const Token& token);

}  // namespace mof
