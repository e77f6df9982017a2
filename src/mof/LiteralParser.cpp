#include <mof/LiteralParser.h>

namespace mof {

namespace {

std::string ParseTexts(TokenStream& tokens) {
    std::string text;
    while (tokens.Peek().kind == TokenKind::Text) {
        text += std::get<std::string>(tokens.Take().value);
    }
    return text;
}

}  // namespace

Scalar ParseScalar(TokenStream& tokens) {
    if (tokens.Peek().kind == TokenKind::Text) {
        return ParseTexts(tokens);
    }
    if (tokens.Peek().kind == TokenKind::Number) {
        return tokens.Take().value;
    }
    if (tokens.AcceptKeyword("true")) {
        return true;
    }
    if (tokens.AcceptKeyword("false")) {
        return false;
    }
    if (tokens.AcceptKeyword("null")) {
        return Scalar();
    }
    tokens.FailExpected("a value");
}

std::vector<Scalar> ParseArray(TokenStream& tokens) {
    tokens.Expect('{');
    std::vector<Scalar> elements;
    if (tokens.Accept('}')) {
        return elements;
    }
    do {
        elements.push_back(ParseScalar(tokens));
    } while (tokens.Accept(','));
    tokens.Expect('}');
    return elements;
}

Literal ParseLiteral(TokenStream& tokens) {
    if (tokens.AtSymbol('{')) {
        return ParseArray(tokens);
    }
    return ParseScalar(tokens);
}

}  // namespace mof
