#include <gtest/gtest.h>
#include <mof/DataTypes.h>
#include <mof/Reader.h>

#include "ErrorText.h"

namespace {

std::vector<std::string> QualifierNames(const std::vector<mof::Qualifier>& qualifiers) {
    std::vector<std::string> names;
    for (const auto& qualifier : qualifiers) {
        names.push_back(qualifier.name);
    }
    return names;
}

TEST(Reader, EmptyText_YieldsAnEmptySchema) {
    const auto schema = mof::ReadText("", "empty.mof");
    EXPECT_TRUE(schema.classes.empty());
    EXPECT_TRUE(schema.qualifiers.empty());
}

TEST(Reader, ByteOrderMarkAndComments_ArePassedOver) {
    const auto schema = mof::ReadText(
        "\xEF\xBB\xBF// one line with \"quotes\"\n/* several\n lines ** / */class /**/ A { };",
        "a.mof");
    ASSERT_EQ(schema.classes.size(), 1U);
    EXPECT_EQ(schema.classes[0].name, "A");
}

TEST(Reader, Keywords_AreReadInAnyLetterCase) {
    const auto schema = mof::ReadText(
        "CLASS A { [KEY] STRING Id = NULL; }; Class B : a { A Ref Other; BOOLEAN On = True; };"
        "QUALIFIER Key : Boolean = FALSE, SCOPE(Property), FLAVOR(DisableOverride);",
        "a.mof");
    ASSERT_EQ(schema.classes.size(), 2U);
    EXPECT_EQ(schema.classes[1].superClass, "a");
    EXPECT_EQ(mof::ToText(schema.classes[1].properties[0].type), "A REF");
    EXPECT_EQ(schema.classes[1].properties[1].defaultValue, mof::Literal(true));
    EXPECT_EQ(schema.qualifiers[0].defaultValue, mof::Literal(false));
}

TEST(Reader, QualifierDeclaration_KeepsTypeDefaultScopesAndFlavors) {
    const auto schema = mof::ReadText(
        "Qualifier Values : string[] = {\"a\", null}, Scope(property, any), Flavor(Translatable, "
        "ToSubclass);\nQualifier Version : string, Scope(class);",
        "a.mof");
    ASSERT_EQ(schema.qualifiers.size(), 2U);
    const auto& values = schema.qualifiers[0];
    EXPECT_EQ(values.name, "Values");
    EXPECT_EQ(mof::ToText(values.type), "string[]");
    EXPECT_EQ(values.defaultValue, mof::Literal(std::vector<mof::Scalar>{"a", mof::Scalar()}));
    EXPECT_EQ(values.scopes, (std::vector<std::string>{"property", "any"}));
    EXPECT_EQ(values.flavors, (std::vector<std::string>{"Translatable", "ToSubclass"}));
    const auto& version = schema.qualifiers[1];
    EXPECT_EQ(version.defaultValue, mof::Literal());
    EXPECT_TRUE(version.flavors.empty());
}

TEST(Reader, ClassQualifiers_AreKeptWithTheirValues) {
    const auto schema = mof::ReadText(
        "[Association, Abstract : Restricted ToSubclass, Version(\"1\" \".2\"), Min(-3),\n"
        " ValueMap {\"0\", \"1\"}, Values({\"Off\"}), Off(false)] class A { };",
        "a.mof");
    const auto& qualifiers = schema.classes[0].qualifiers;
    EXPECT_EQ(QualifierNames(qualifiers),
              (std::vector<std::string>{"Association", "Abstract", "Version", "Min", "ValueMap",
                                        "Values", "Off"}));
    EXPECT_EQ(qualifiers[0].value, mof::Literal());
    EXPECT_EQ(qualifiers[2].value, mof::Literal("1.2"));
    EXPECT_EQ(qualifiers[3].value, mof::Literal(std::int64_t{-3}));
    EXPECT_EQ(qualifiers[4].value, mof::Literal(std::vector<mof::Scalar>{"0", "1"}));
    EXPECT_EQ(qualifiers[5].value, mof::Literal(std::vector<mof::Scalar>{"Off"}));
    EXPECT_EQ(qualifiers[6].value, mof::Literal(false));
}

TEST(Reader, Properties_KeepEveryTypeArraysAndOrder) {
    const auto schema = mof::ReadText(
        "class A { boolean a; uint8 b; sint8 c; uint16 d; sint16 e; uint32 f; sint32 g; uint64 h;"
        " sint64 i; real32 j; real64 k; char16 l; string m; datetime n; A REF o; uint16 p[];"
        " string q[3]; };",
        "a.mof");
    std::string types;
    for (const auto& property : schema.classes[0].properties) {
        types += property.name + " " + mof::ToText(property.type) + ", ";
    }
    EXPECT_EQ(types,
              "a boolean, b uint8, c sint8, d uint16, e sint16, f uint32, g sint32, h uint64, "
              "i sint64, j real32, k real64, l char16, m string, n datetime, o A REF, p uint16[], "
              "q string[], ");
}

TEST(Reader, Method_KeepsReturnTypeQualifiersAndParameters) {
    const auto schema = mof::ReadText(
        "class A { [Description(\"Starts.\")] uint32 Start([In] uint16 Mode, [In(false), Out] A "
        "REF "
        "Job, string Names[]); boolean Stop(); };",
        "a.mof");
    ASSERT_EQ(schema.classes[0].methods.size(), 2U);
    const auto& start = schema.classes[0].methods[0];
    EXPECT_EQ(start.name, "Start");
    EXPECT_EQ(mof::ToText(start.returnType), "uint32");
    EXPECT_EQ(QualifierNames(start.qualifiers), std::vector<std::string>{"Description"});
    ASSERT_EQ(start.parameters.size(), 3U);
    EXPECT_EQ(start.parameters[0].name, "Mode");
    EXPECT_EQ(mof::ToText(start.parameters[1].type), "A REF");
    EXPECT_EQ(QualifierNames(start.parameters[1].qualifiers),
              (std::vector<std::string>{"In", "Out"}));
    EXPECT_EQ(mof::ToText(start.parameters[2].type), "string[]");
    EXPECT_TRUE(schema.classes[0].methods[1].parameters.empty());
}

TEST(Reader, ClassAlias_IsPassedOver) {
    const auto schema =
        mof::ReadText("class A as $First { }; class B as $Second : A { };", "a.mof");
    EXPECT_EQ(schema.classes[1].superClass, "A");
}

TEST(Reader, PragmasOtherThanInclude_ArePassedOver) {
    const auto schema = mof::ReadText(
        "#pragma locale (\"en_US\")\n#PRAGMA Namespace(\"root\")\nclass A { };", "a.mof");
    EXPECT_EQ(schema.classes.size(), 1U);
}

TEST(Reader, PropertyNamedAsAKeyword_IsRead) {
    const auto schema = mof::ReadText("class A { string Class; uint8 Qualifier; };", "a.mof");
    EXPECT_EQ(schema.classes[0].properties[0].name, "Class");
    EXPECT_EQ(schema.classes[0].properties[1].name, "Qualifier");
}

TEST(Reader, ReferenceRedeclaredWithASubclass_IsAccepted) {
    const auto schema = mof::ReadText(
        "class A { }; class B : A { }; class L { A REF Left; };"
        "class M : L { [Override(\"Left\")] B REF left; }; class N { N REF Next; };"
        "class O : N { O REF Next; };",
        "a.mof");
    EXPECT_EQ(schema.classes.size(), 6U);
}

TEST(Reader, TextBrokenAnywhere_EndsWithAnErrorOrASchema) {
    const std::string text =
        "Qualifier Key : boolean = false, Scope(property), Flavor(DisableOverride);\n"
        "/* c */ [Abstract, V(\"a\\x41\" 'b')] class A { [Key] uint16 P[2] = {1, 0x2, 10b}; };\n"
        "class B : A { uint32 M([In] A REF R, [Out] string S[]); real32 F = 1.5e-3; };";
    ASSERT_EQ(mof::ReadText(text, "a.mof").classes.size(), 2U);
    int errors = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        for (const char replacement : {'\0', '"', '{', '(', '9', '\\', '\x80', '/', '-'}) {
            std::string broken = text;
            broken[i] = replacement;
            errors += ErrorText([&] { mof::ReadText(broken, "a.mof"); }) != "no error";
        }
        errors += ErrorText([&] { mof::ReadText(text.substr(0, i), "a.mof"); }) != "no error";
    }
    EXPECT_GT(errors, 0);
}

}  // namespace
