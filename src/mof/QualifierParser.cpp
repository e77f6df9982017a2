#include <mof/DataTypes.h>
#include <mof/LiteralParser.h>
#include <mof/Names.h>
#include <mof/QualifierParser.h>
#include <mof/TypeParser.h>

#include <unordered_set>

namespace mof {

namespace {

Literal ParseQualifierValue(TokenStream& tokens) {
    if (tokens.AtSymbol('{')) {
        return ParseArray(tokens);
    }
    if (!tokens.Accept('(')) {
        return {};
    }
    Literal value = ParseLiteral(tokens);
    tokens.Expect(')');
    return value;
}

void SkipFlavors(TokenStream& tokens) {
    if (tokens.Accept(':')) {
        do {
            tokens.ExpectName("a flavor");
        } while (tokens.Peek().kind == TokenKind::Name);
    }
}

// "(class, association)"
std::vector<std::string> ParseWords(TokenStream& tokens, const std::string& what) {
    std::vector<std::string> words;
    tokens.Expect('(');
    do {
        words.push_back(tokens.ExpectName(what).spelling);
    } while (tokens.Accept(','));
    tokens.Expect(')');
    return words;
}

void ParseDefaultValue(TokenStream& tokens, QualifierDeclaration& declaration) {
    const Place place = tokens.Peek().place;
    declaration.defaultValue = ParseLiteral(tokens);
    if (!Fits(declaration.defaultValue, declaration.type)) {
        Fail(place, "The default value of qualifier '" + declaration.name +
                        "' does not fit its type " + ToText(declaration.type) + ".");
    }
}

}  // namespace

std::vector<Qualifier> ParseQualifierList(TokenStream& tokens) {
    std::vector<Qualifier> qualifiers;
    if (!tokens.Accept('[')) {
        return qualifiers;
    }
    std::unordered_set<std::string> names;
    do {
        const Token name = tokens.ExpectName("the name of a qualifier");
        if (!names.insert(FoldedName(name.spelling)).second) {
            Fail(name.place, "Qualifier '" + name.spelling + "' appears twice in one list.");
        }
        qualifiers.push_back({name.spelling, ParseQualifierValue(tokens)});
        SkipFlavors(tokens);
    } while (tokens.Accept(','));
    tokens.Expect(']');
    return qualifiers;
}

QualifierDeclaration ParseQualifierDeclaration(TokenStream& tokens) {
    tokens.ExpectKeyword("qualifier");
    QualifierDeclaration declaration;
    declaration.name = tokens.ExpectName("the name of a qualifier").spelling;
    tokens.Expect(':');
    declaration.type = ParseType(tokens);
    declaration.type.isArray = ParseArrayBrackets(tokens);
    if (tokens.Accept('=')) {
        ParseDefaultValue(tokens, declaration);
    }
    tokens.Expect(',');
    tokens.ExpectKeyword("scope");
    declaration.scopes = ParseWords(tokens, "a scope");
    if (tokens.Accept(',')) {
        tokens.ExpectKeyword("flavor");
        declaration.flavors = ParseWords(tokens, "a flavor");
    }
    tokens.Expect(';');
    return declaration;
}

}  // namespace mof
