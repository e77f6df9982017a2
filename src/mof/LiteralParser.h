// Values as they stand behind '=' and in qualifiers.
#pragma once

#include <mof/TokenStream.h>

namespace mof {

// A single value, or an array in braces. Adjacent texts are one text. Throws Error.
Literal ParseLiteral(TokenStream& tokens);

// An array, at whose opening brace the tokens stand.
std::vector<Scalar> ParseArray(TokenStream& tokens);

// A single value.
Scalar ParseScalar(TokenStream& tokens);

}  // namespace mof
