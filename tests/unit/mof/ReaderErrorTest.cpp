#include <gtest/gtest.h>
#include <mof/Declarations.h>
#include <mof/Reader.h>

#include "ErrorText.h"

namespace {

struct BadText {
    const char* circumstance;
    const char* text;
    const char* error;
};

std::ostream& operator<<(std::ostream& out, const BadText& bad) { return out << bad.circumstance; }

class ReaderError : public testing::TestWithParam<BadText> {};

TEST_P(ReaderError, NamesThePlaceAndTheReason) {
    EXPECT_EQ(ErrorText([] { mof::ReadText(GetParam().text, "a.mof"); }), GetParam().error);
}

constexpr BadText kBadTexts[] = {
    {"CommentWithoutEnd", "class A { };\n  /* no end * /",
     "a.mof:2:3: The comment that begins here is not closed."},
    {"TextWithoutEnd", "[D(\"abc)] class A { };",
     "a.mof:1:4: The text that begins here is not closed on its line."},
    {"TextOverTwoLines", "[D(\"abc\ndef\")] class A { };",
     "a.mof:1:4: The text that begins here is not closed on its line."},
    {"TabsAndUmlautsBeforeTheError", "/* \xC3\xA9 */\t%",
     "a.mof:1:9: The character '%' has no meaning in MOF."},
    {"ControlCharacter", "class \x01",
     "a.mof:1:7: The byte 0x01 has no meaning in MOF outside of texts."},
    {"UmlautInAName", "class \xC3\xA4",
     "a.mof:1:7: The byte 0xc3 has no meaning in MOF outside of texts."},
    {"UnknownEscape", R"([D("a\q")] class A { };)", "a.mof:1:6: '\\q' is not an escape sequence."},
    {"EscapeAtTheEndOfTheLine", "[D(\"a\\\n\")] class A { };",
     "a.mof:1:6: The line ends within an escape sequence."},
    {"HexadecimalEscapeWithoutDigits", R"([D("\xg")] class A { };)",
     "a.mof:1:5: One to four hexadecimal digits follow '\\x'."},
    {"HalfOfASurrogatePair", R"([D("\xD83D")] class A { };)",
     "a.mof:1:5: '\\xD83D' is not a character."},
    {"NulCharacter", R"([D("\x0")] class A { };)", "a.mof:1:5: '\\x0' is not a character."},
    {"TwoCharactersInSingleQuotes", "[D('ab')] class A { };",
     "a.mof:1:4: Exactly one character stands between single quotes."},
    {"NoCharacterInSingleQuotes", "[D('')] class A { };",
     "a.mof:1:4: Exactly one character stands between single quotes."},
    {"DigitsAndLetters", "[D(12ab)] class A { };", "a.mof:1:4: '12ab' is not a number."},
    {"HexadecimalPrefixAlone", "[D(0x)] class A { };", "a.mof:1:4: '0x' is not a number."},
    {"DecimalDigitInOctal", "[D(08)] class A { };", "a.mof:1:4: '08' is not a number."},
    {"SignAlone", "[D(-)] class A { };", "a.mof:1:4: '-' is not a number."},
    {"TwoDecimalPoints", "[D(1.2.3)] class A { };", "a.mof:1:4: '1.2.3' is not a number."},
    {"PointWithoutDecimals", "[D(1.)] class A { };", "a.mof:1:4: '1.' is not a number."},
    {"ExponentWithoutDigits", "[D(1.5e+)] class A { };", "a.mof:1:4: '1.5e+' is not a number."},
    {"IntegerAbove64Bits", "[D(18446744073709551616)] class A { };",
     "a.mof:1:4: The number '18446744073709551616' does not fit into 64 bits."},
    {"IntegerBelow64Bits", "[D(-9223372036854775809)] class A { };",
     "a.mof:1:4: The number '-9223372036854775809' does not fit into 64 bits."},
    {"RealTooLarge", "[D(1.0e999)] class A { };",
     "a.mof:1:4: The number '1.0e999' does not fit into a real64."},
    {"SomethingElseAtTheTop", "struct A { };",
     "a.mof:1:1: Expected a class, a qualifier declaration or a pragma but found 'struct'."},
    {"EndBehindQualifiers", "[Abstract]",
     "a.mof:1:11: Expected a class, a qualifier declaration or a pragma but found the end of the "
     "file."},
    {"Instance", "class A { };\ninstance of A { };",
     "a.mof:2:1: Only classes and qualifiers are read; remove the instance."},
    {"HashWithoutPragma", "#include (\"a\")", "a.mof:1:2: Expected 'pragma' but found 'include'."},
    {"PragmaWithoutText", "#pragma locale (en)",
     "a.mof:1:17: Expected the text in the pragma but found 'en'."},
    {"PragmaWithoutName", "#pragma (\"a\")",
     "a.mof:1:9: Expected the name of a pragma but found '('."},
    {"IncludeInAText", "#pragma include (\"b.mof\")",
     "a.mof:1:18: A text cannot include a file; 'b.mof' is not read."},
    {"NoClassName", "class { };", "a.mof:1:7: Expected the name of a class but found '{'."},
    {"NoSuperClassName", "class A : { };",
     "a.mof:1:11: Expected the name of the superclass but found '{'."},
    {"AliasWithoutDollar", "class A as B { };", "a.mof:1:12: Expected '$' but found 'B'."},
    {"AliasWithoutName", "class A as $ { };", "a.mof:1:14: Expected an alias but found '{'."},
    {"NoSemicolonBehindAClass", "class A { }\nclass B { };",
     "a.mof:2:1: Expected ';' but found 'class'."},
    {"NoSemicolonBehindAProperty", "class A { string P }",
     "a.mof:1:20: Expected ';' but found '}'."},
    {"EndWithinAClass", "class A {",
     "a.mof:1:10: Expected a data type or the name of a class but found the end of the file."},
    {"UnknownType", "class A { int P; };",
     "a.mof:1:11: 'int' is not a data type; a reference to a class is written 'int REF'."},
    {"NoPropertyName", "class A { string; };",
     "a.mof:1:17: Expected the name of a property or method but found ';'."},
    {"ArraySizeZero", "class A { string P[0]; };",
     "a.mof:1:20: The size of an array is a whole number from 1 on, not '0'."},
    {"ArraySizeReal", "class A { string P[1.5]; };",
     "a.mof:1:20: The size of an array is a whole number from 1 on, not '1.5'."},
    {"ArraySizeText", "class A { string P[\"3\"]; };",
     "a.mof:1:20: Expected ']' but found the text \"3\"."},
    {"ArrayOfReferences", "class A { A REF P[]; };",
     "a.mof:1:17: Property 'P' of class 'A' is an array of references, which CIM does not have."},
    {"NoValue", "class A { string P = ; };", "a.mof:1:22: Expected a value but found ';'."},
    {"NestedArray", "class A { string P[] = {{}}; };",
     "a.mof:1:25: Expected a value but found '{'."},
    {"ArrayWithoutEnd", "class A { string P[] = {\"a\"; };",
     "a.mof:1:28: Expected '}' but found ';'."},
    {"DefaultOfAnotherType", "class A { uint8 P = 256; };",
     "a.mof:1:21: The default value of property 'P' of class 'A' does not fit its type uint8."},
    {"NoParameterName", "class A { uint32 M(string); };",
     "a.mof:1:26: Expected the name of a parameter but found ')'."},
    {"ParametersWithoutEnd", "class A { uint32 M(string P; };",
     "a.mof:1:28: Expected ')' but found ';'."},
    {"QualifierListWithoutEnd", "[Abstract class A { };",
     "a.mof:1:11: Expected ']' but found 'class'."},
    {"QualifierWithoutName", "[] class A { };",
     "a.mof:1:2: Expected the name of a qualifier but found ']'."},
    {"QualifierValueWithoutEnd", "[D(1] class A { };", "a.mof:1:5: Expected ')' but found ']'."},
    {"FlavorWithoutName", "[D : ] class A { };", "a.mof:1:6: Expected a flavor but found ']'."},
    {"QualifierTwice", "[Key, Abstract, KEY] class A { };",
     "a.mof:1:17: Qualifier 'KEY' appears twice in one list."},
    {"QualifierDeclarationWithoutScope", "Qualifier Q : string = null;",
     "a.mof:1:28: Expected ',' but found ';'."},
    {"ScopeMisspelled", "Qualifier Q : string, Scop(any);",
     "a.mof:1:23: Expected 'scope' but found 'Scop'."},
    {"EmptyScope", "Qualifier Q : string, Scope();", "a.mof:1:29: Expected a scope but found ')'."},
    {"FlavorMisspelled", "Qualifier Q : string, Scope(any), Flavour(a);",
     "a.mof:1:35: Expected 'flavor' but found 'Flavour'."},
    {"QualifierDefaultOfAnotherType", "Qualifier Q : boolean = \"no\", Scope(any);",
     "a.mof:1:25: The default value of qualifier 'Q' does not fit its type boolean."},
    {"QualifierDeclaredTwice",
     "Qualifier Q : string, Scope(any);\nQualifier q : string, Scope(any);",
     "a.mof:2:1: Qualifier 'q' is already declared at a.mof:1:1."},
    {"ClassDeclaredTwice", "class A { };\nclass a { };",
     "a.mof:2:7: Class 'a' is already declared at a.mof:1:7."},
    {"UnknownSuperClass", "class B : A { };\nclass A { };",
     "a.mof:1:11: Class 'B' derives from 'A', which is not declared before it."},
    {"ClassDerivesFromItself", "class A : A { };",
     "a.mof:1:11: Class 'A' derives from 'A', which is not declared before it."},
    {"UnknownClassOfAReference", "class A {\n  B REF P;\n};\nclass B { };",
     "a.mof:2:3: 'P' of class 'A' refers to class 'B', which is not declared before it."},
    {"UnknownClassOfAParameter", "class A { uint32 M([In] B REF P); };",
     "a.mof:1:25: 'M' of class 'A' refers to class 'B', which is not declared before it."},
    {"PropertyTwice", "class A { string P; uint8 p; };",
     "a.mof:1:27: Property 'p' is declared twice in class 'A'."},
    {"MethodTwice", "class A { uint32 M(); uint32 M(string P); };",
     "a.mof:1:30: Method 'M' is declared twice in class 'A'."},
    {"ParameterTwice", "class A { uint32 M(string P, string P); };",
     "a.mof:1:37: Parameter 'P' is declared twice in method 'M' of class 'A'."},
    {"OverrideOfAnotherType", "class A { string P; }; class B : A { }; class C : B { uint8 p; };",
     "a.mof:1:61: Property 'p' of class 'C' has the type uint8, but the one of class 'A' that it "
     "overrides "
     "has the type string."},
    {"OverrideByAnArray", "class A { string P; }; class B : A { string P[]; };",
     "a.mof:1:45: Property 'P' of class 'B' has the type string[], but the one of class 'A' that "
     "it "
     "overrides has the type string."},
    {"OverrideByAnotherReference",
     "class A { }; class B { }; class L { A REF P; }; class M : L { B REF P; };",
     "a.mof:1:69: Property 'P' of class 'M' has the type B REF, but the one of class 'L' that it "
     "overrides "
     "has the type A REF."},
};

INSTANTIATE_TEST_SUITE_P(BadTexts, ReaderError, testing::ValuesIn(kBadTexts),
                         [](const auto& test) { return test.param.circumstance; });

std::string ChainOfClasses(std::size_t superClassCount) {
    std::string text = "class C0 { };\n";
    for (std::size_t i = 1; i <= superClassCount; ++i) {
        text += "class C" + std::to_string(i) + " : C" + std::to_string(i - 1) + " { };\n";
    }
    return text;
}

TEST(ReaderLimits, AsManySuperClassesAsAllowed_AreRead) {
    const auto schema = mof::ReadText(ChainOfClasses(mof::kMaxSuperClasses), "a.mof");
    EXPECT_EQ(schema.classes.size(), mof::kMaxSuperClasses + 1);
}

TEST(ReaderLimits, OneSuperClassTooMany_IsAnError) {
    EXPECT_EQ(ErrorText([] { mof::ReadText(ChainOfClasses(mof::kMaxSuperClasses + 1), "a.mof"); }),
              "a.mof:66:13: Class 'C65' has more than 64 superclasses.");
}

}  // namespace
