#include <mof/ClassParser.h>
#include <mof/DataTypes.h>
#include <mof/LiteralParser.h>
#include <mof/Names.h>
#include <mof/QualifierParser.h>
#include <mof/TypeParser.h>

#include <utility>

namespace mof {

namespace {

void CheckNewName(std::unordered_set<std::string>& names, const Token& name,
                  const std::string& kind, const std::string& owner) {
    if (!names.insert(FoldedName(name.spelling)).second) {
        Fail(name.place, kind + " '" + name.spelling + "' is declared twice in " + owner + ".");
    }
}

}  // namespace

void ClassParser::Parse(std::vector<Qualifier> qualifiers) {
    tokens.ExpectKeyword("class");
    const Token name = tokens.ExpectName("the name of a class");
    cls.name = name.spelling;
    cls.qualifiers = std::move(qualifiers);
    if (tokens.AcceptKeyword("as")) {
        tokens.Expect('$');
        tokens.ExpectName("an alias");
    }
    if (tokens.Accept(':')) {
        ParseSuperClass();
    }
    tokens.Expect('{');
    while (!tokens.Accept('}')) {
        ParseMember();
    }
    tokens.Expect(';');
    declarations.AddClass(std::move(cls), name.place);
}

void ClassParser::ParseSuperClass() {
    const Token superClass = tokens.ExpectName("the name of the superclass");
    cls.superClass = superClass.spelling;
    declarations.CheckSuperClass(cls, superClass.place);
}

void ClassParser::ParseMember() {
    auto qualifiers = ParseQualifierList(tokens);
    const Place typePlace = tokens.Peek().place;
    TypeName type = ParseType(tokens);
    const Token name = tokens.ExpectName("the name of a property or method");
    declarations.CheckReference(cls, name.spelling, type, typePlace);
    const std::string owner = "class '" + cls.name + "'";
    if (tokens.AtSymbol('(')) {
        CheckNewName(methodNames, name, "Method", owner);
        ParseMethod({name.spelling, std::move(type), {}, std::move(qualifiers)});
    } else {
        CheckNewName(propertyNames, name, "Property", owner);
        ParseProperty({name.spelling, std::move(type), std::move(qualifiers), {}}, name.place);
    }
}

void ClassParser::ParseProperty(Property property, const Place& place) {
    property.type.isArray = ParseArrayBrackets(tokens);
    if (property.type.isArray && property.type.type == DataType::Reference) {
        Fail(place, "Property '" + property.name + "' of class '" + cls.name +
                        "' is an array of references, which CIM does not have.");
    }
    declarations.CheckOverride(cls, property, place);
    if (tokens.Accept('=')) {
        const Place valuePlace = tokens.Peek().place;
        property.defaultValue = ParseLiteral(tokens);
        if (!Fits(*property.defaultValue, property.type)) {
            Fail(valuePlace, "The default value of property '" + property.name + "' of class '" +
                                 cls.name + "' does not fit its type " + ToText(property.type) +
                                 ".");
        }
    }
    tokens.Expect(';');
    cls.properties.push_back(std::move(property));
}

void ClassParser::ParseMethod(Method method) {
    tokens.Expect('(');
    std::unordered_set<std::string> names;
    if (!tokens.AtSymbol(')')) {
        do {
            ParseParameter(method, names);
        } while (tokens.Accept(','));
    }
    tokens.Expect(')');
    tokens.Expect(';');
    cls.methods.push_back(std::move(method));
}

void ClassParser::ParseParameter(Method& method, std::unordered_set<std::string>& names) {
    Parameter parameter;
    parameter.qualifiers = ParseQualifierList(tokens);
    const Place typePlace = tokens.Peek().place;
    parameter.type = ParseType(tokens);
    const Token name = tokens.ExpectName("the name of a parameter");
    const std::string owner = "method '" + method.name + "' of class '" + cls.name + "'";
    declarations.CheckReference(cls, method.name, parameter.type, typePlace);
    CheckNewName(names, name, "Parameter", owner);
    parameter.name = name.spelling;
    parameter.type.isArray = ParseArrayBrackets(tokens);
    method.parameters.push_back(std::move(parameter));
}

}  // namespace mof
