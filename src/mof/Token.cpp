#include <mof/Token.h>

namespace mof {

std::string Describe(const Token& token) {
    switch (token.kind) {
        case TokenKind::End:
            return "the end of the file";
        case TokenKind::Text:
            return "the text " + token.spelling;
        default:
            return "'" + token.spelling + "'";
    }
}

}  // namespace mof
