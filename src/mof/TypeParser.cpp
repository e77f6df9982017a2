#include <mof/DataTypes.h>
#include <mof/TypeParser.h>

namespace mof {

TypeName ParseType(TokenStream& tokens) {
    const Token name = tokens.ExpectName("a data type or the name of a class");
    if (tokens.AcceptKeyword("ref")) {
        return {DataType::Reference, false, name.spelling};
    }
    const auto type = FindDataType(name.spelling);
    if (!type) {
        Fail(name.place, "'" + name.spelling +
                             "' is not a data type; a reference to a class is written '" +
                             name.spelling + " REF'.");
    }
    return {*type, false, ""};
}

bool ParseArrayBrackets(TokenStream& tokens) {
    if (!tokens.Accept('[')) {
        return false;
    }
    if (tokens.Peek().kind == TokenKind::Number) {
        const Token size = tokens.Take();
        const auto* count = std::get_if<std::int64_t>(&size.value);
        if (count == nullptr || *count < 1) {
            Fail(size.place,
                 "The size of an array is a whole number from 1 on, not " + Describe(size) + ".");
        }
    }
    tokens.Expect(']');
    return true;
}

}  // namespace mof
