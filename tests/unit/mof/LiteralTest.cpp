#include <gtest/gtest.h>
#include <mof/DataTypes.h>
#include <mof/Reader.h>

#include <cmath>
#include <limits>

#include "ErrorText.h"

namespace {

// The literal as the value of a qualifier, which may be of any type.
mof::Literal Read(const std::string& literal) {
    return mof::ReadText("[Q(" + literal + ")] class A { };", "a.mof")
        .classes[0]
        .qualifiers[0]
        .value;
}

mof::Literal Signed(std::int64_t value) { return value; }
mof::Literal Unsigned(std::uint64_t value) { return value; }

TEST(Literal, Integers_AreReadInEveryBase) {
    EXPECT_EQ(Read("0"), Signed(0));
    EXPECT_EQ(Read("42"), Signed(42));
    EXPECT_EQ(Read("+42"), Signed(42));
    EXPECT_EQ(Read("-42"), Signed(-42));
    EXPECT_EQ(Read("0x1aF"), Signed(0x1AF));
    EXPECT_EQ(Read("-0X10"), Signed(-16));
    EXPECT_EQ(Read("0x1e"), Signed(0x1E));
    EXPECT_EQ(Read("101b"), Signed(5));
    EXPECT_EQ(Read("0B"), Signed(0));
    EXPECT_EQ(Read("017"), Signed(15));
}

TEST(Literal, IntegersAtTheLimitsOf64Bits_KeepTheirValue) {
    EXPECT_EQ(Read("9223372036854775807"), Signed(std::numeric_limits<std::int64_t>::max()));
    EXPECT_EQ(Read("9223372036854775808"), Unsigned(9223372036854775808U));
    EXPECT_EQ(Read("18446744073709551615"), Unsigned(std::numeric_limits<std::uint64_t>::max()));
    EXPECT_EQ(Read("-9223372036854775808"), Signed(std::numeric_limits<std::int64_t>::min()));
}

TEST(Literal, Reals_AreRead) {
    EXPECT_EQ(Read("1.5"), mof::Literal(1.5));
    EXPECT_EQ(Read("-.25"), mof::Literal(-0.25));
    EXPECT_EQ(Read("+2.5e3"), mof::Literal(2500.0));
    EXPECT_EQ(Read("2.5E-1"), mof::Literal(0.25));
}

TEST(Literal, AdjacentTexts_AreOneText) {
    EXPECT_EQ(Read("\"one \" // comment\n \"two\"\n\"\""), mof::Literal("one two"));
}

TEST(Literal, EscapeSequences_AreDecoded) {
    EXPECT_EQ(Read(R"("\b\t\n\f\r\"\'\\")"), mof::Literal("\b\t\n\f\r\"'\\"));
    EXPECT_EQ(Read(R"("\x41\X42g")"), mof::Literal("ABg"));
    EXPECT_EQ(Read(R"("\x00E9\xFc\x20ac")"), mof::Literal("\xC3\xA9\xC3\xBC\xE2\x82\xAC"));
}

TEST(Literal, CharacterInSingleQuotes_IsItsText) {
    EXPECT_EQ(Read("'a'"), mof::Literal("a"));
    EXPECT_EQ(Read(R"('\'')"), mof::Literal("'"));
    EXPECT_EQ(Read("'\xC3\xA9'"), mof::Literal("\xC3\xA9"));
}

TEST(Literal, BooleansAndNull_AreRead) {
    EXPECT_EQ(Read("TRUE"), mof::Literal(true));
    EXPECT_EQ(Read("false"), mof::Literal(false));
    EXPECT_EQ(Read("Null"), mof::Literal());
}

TEST(Literal, Arrays_KeepTheirElements) {
    EXPECT_EQ(Read("{}"), mof::Literal(std::vector<mof::Scalar>{}));
    EXPECT_EQ(Read("{1, null, \"a\" \"b\"}"),
              mof::Literal(std::vector<mof::Scalar>{std::int64_t{1}, mof::Scalar(), "ab"}));
}

struct DefaultValue {
    const char* declaration;
    bool fits;
};

TEST(DefaultValue, OfEveryType_FitsUpToItsLimits) {
    constexpr DefaultValue kCases[] = {
        {"boolean P = true", true},
        {"boolean P = 1", false},
        {"uint8 P = 255", true},
        {"uint8 P = 256", false},
        {"sint8 P = -128", true},
        {"sint8 P = -129", false},
        {"uint16 P = 65535", true},
        {"uint16 P = 65536", false},
        {"uint16 P = -1", false},
        {"sint16 P = 32767", true},
        {"sint16 P = 32768", false},
        {"uint32 P = 4294967295", true},
        {"uint32 P = 4294967296", false},
        {"sint32 P = -2147483648", true},
        {"sint32 P = 2147483648", false},
        {"uint64 P = 18446744073709551615", true},
        {"uint64 P = -1", false},
        {"uint64 P = \"1\"", false},
        {"sint64 P = -9223372036854775808", true},
        {"sint64 P = 9223372036854775808", false},
        {"real32 P = 1.0e38", true},
        {"real32 P = 1.0e39", false},
        {"real64 P = 1.0e308", true},
        {"real64 P = 3", true},
        {"real64 P = true", false},
        {"char16 P = 'x'", true},
        {"char16 P = '\xE2\x82\xAC'", true},
        {"char16 P = \"xy\"", false},
        {"char16 P = \"\"", false},
        {"string P = \"\"", true},
        {"string P = 1", false},
        {"datetime P = \"19980525133015.0000000-300\"", false},
        {"datetime P = \"19980525133015.000000-300\"", true},
        {"A REF P = \"A.Key=1\"", true},
        {"string P[] = {\"a\", null}", true},
        {"string P[] = {\"a\", 1}", false},
        {"string P[] = \"a\"", false},
        {"string P[] = null", true},
        {"string P = {\"a\"}", false},
    };
    for (const auto& [declaration, fits] : kCases) {
        const std::string text = "class A { " + std::string(declaration) + "; };";
        const bool isRead = ErrorText([&] { mof::ReadText(text, "a.mof"); }) == "no error";
        EXPECT_EQ(isRead, fits) << declaration;
    }
}

}  // namespace
