#include <gmock/gmock.h>
#include <locale.h>
#include <platform/settings/TextPattern.h>

namespace {

using platform::PatternError;
using platform::TextPattern;

std::string ErrorOf(const std::string& pattern,
                    const std::optional<std::string>& replacement = std::nullopt) {
    try {
        TextPattern unused(pattern, replacement);
    } catch (const PatternError& error) {
        return error.what();
    }
    return "no error";
}

TEST(TextPattern, WithoutGroup_TakesTheWholeOfWhatItFinds) {
    EXPECT_EQ(TextPattern("[0-9]+").Cut("QUV 7000 rev. 2"), "7000");
    EXPECT_EQ(TextPattern("^.*$").Cut("QUV 7000"), "QUV 7000");
}

TEST(TextPattern, WithGroups_TakesTheFirst) {
    EXPECT_EQ(TextPattern("^QUV ([0-9]+) rev. ([0-9])").Cut("QUV 7000 rev. 2"), "7000");
}

TEST(TextPattern, FirstGroupThatTakesNoPart_IsEmpty) {
    EXPECT_EQ(TextPattern("^(x)|(QUV)").Cut("QUV"), "");
}

TEST(TextPattern, ThatIsNotFound_GivesNothing) {
    EXPECT_EQ(TextPattern("^7000").Cut("QUV 7000"), std::nullopt);
    EXPECT_EQ(TextPattern("x").Cut(""), std::nullopt);
}

TEST(TextPattern, LetterCaseAndEveryByteCount) {
    EXPECT_EQ(TextPattern("quv").Cut("QUV"), std::nullopt);
    EXPECT_EQ(TextPattern("^.(.*)").Cut("\xff"
                                        "7000"),
              "7000");
    EXPECT_EQ(TextPattern("b|c").Cut(std::string("a\0b\0c", 5)), "b");
}

TEST(TextPattern, Replacement_IsMadeOfGroups) {
    const std::string pattern = "^(Q)UV ([0-9]+)";
    EXPECT_EQ(TextPattern(pattern, R"(\2\1)").Cut("QUV 7000 rev. 2"), "7000Q");
    EXPECT_EQ(TextPattern(pattern, R"(<\0>)").Cut("QUV 7000 rev. 2"), "<QUV 7000>");
    EXPECT_EQ(TextPattern(pattern, R"(\\1)").Cut("QUV 7000"), R"(\1)");
    EXPECT_EQ(TextPattern(pattern, "7X").Cut("QUV 7000"), "7X");
    EXPECT_EQ(TextPattern(pattern, "").Cut("QUV 7000"), "");
}

TEST(TextPattern, ThatIsNone_SaysWhy) {
    EXPECT_EQ(ErrorOf("("), "Unmatched ( or \\(");
    EXPECT_EQ(ErrorOf("[0-9"), "Unmatched [, [^, [:, [., or [=");
    EXPECT_EQ(ErrorOf("x{2,1}"), "Invalid content of \\{\\}");
    EXPECT_EQ(ErrorOf(std::string("a\0b", 3)), "a NUL character");
}

TEST(TextPattern, ReplacementThatIsNone_SaysWhy) {
    EXPECT_EQ(ErrorOf("x", R"(\1)"), "the pattern has no group 1");
    EXPECT_EQ(ErrorOf("(x)", R"(\1\2)"), "the pattern has no group 2");
    EXPECT_EQ(ErrorOf("x", R"(\n)"), "a backslash without a digit behind it");
    EXPECT_EQ(ErrorOf("x", "\\"), "a backslash without a digit behind it");
    EXPECT_EQ(ErrorOf("x", R"(\0)"), "no error");
}

// A backtracking search would take longer than the universe has been there.
TEST(TextPattern, NestedRepetitionsOnALongText_EndSoon) {
    EXPECT_EQ(TextPattern("^(a*)*b").Cut(std::string(4096, 'a')), std::nullopt);
}

TEST(TextPattern, LocaleOfTheThread_IsAsBefore) {
    const locale_t before = ::uselocale(nullptr);
    EXPECT_EQ(TextPattern("x").Cut("x"), "x");
    EXPECT_NE(ErrorOf("("), "no error");
    EXPECT_EQ(::uselocale(nullptr), before);
}

}  // namespace
