#include <mof/ClassParser.h>
#include <mof/Names.h>
#include <mof/Parser.h>
#include <mof/QualifierParser.h>
#include <mof/TokenStream.h>

#include <utility>

namespace mof {

namespace {

void ParsePragma(TokenStream& tokens, const IncludeHandler& include) {
    tokens.Expect('#');
    tokens.ExpectKeyword("pragma");
    const Token name = tokens.ExpectName("the name of a pragma");
    tokens.Expect('(');
    const Token argument = tokens.ExpectText("the text in the pragma");
    tokens.Expect(')');
    if (SameName(name.spelling, "include")) {
        include(std::get<std::string>(argument.value), argument.place);
    }
}

void ParseQualifiedClass(TokenStream& tokens, Declarations& declarations) {
    auto qualifiers = ParseQualifierList(tokens);
    if (tokens.AtKeyword("instance")) {
        Fail(tokens.Peek().place, "Only classes and qualifiers are read; remove the instance.");
    }
    if (!tokens.AtKeyword("class")) {
        tokens.FailExpected("a class, a qualifier declaration or a pragma");
    }
    ClassParser(tokens, declarations).Parse(std::move(qualifiers));
}

}  // namespace

void Parse(std::string_view text, const std::string& fileName, Declarations& declarations,
           const IncludeHandler& include) {
    TokenStream tokens(text, fileName);
    while (tokens.Peek().kind != TokenKind::End) {
        if (tokens.AtSymbol('#')) {
            ParsePragma(tokens, include);
        } else if (tokens.AtKeyword("qualifier")) {
            const Place place = tokens.Peek().place;
            declarations.AddQualifier(ParseQualifierDeclaration(tokens), place);
        } else {
            ParseQualifiedClass(tokens, declarations);
        }
    }
}

}  // namespace mof
