#include <cli/Printable.h>
#include <gtest/gtest.h>

#include <string>

namespace cli {
namespace {

using namespace std::string_literals;

TEST(Printable, PlainText_StaysAsItIs) {
    EXPECT_EQ(Printable(""), "");
    EXPECT_EQ(Printable("Bus 0 ~ \\x1b"), "Bus 0 ~ \\x1b");
    EXPECT_EQ(Printable("Prüfung, 試験, 🚌"), "Prüfung, 試験, 🚌");
}

TEST(Printable, EscapeSequence_DoesNothingAnyMore) {
    EXPECT_EQ(Printable("\033[2Jgone\033]0;title\a"), "\\x1b[2Jgone\\x1b]0;title\\x07");
}

TEST(Printable, LineFeed_StaysInTextsOfSeveralLines) {
    EXPECT_EQ(Printable("a\nb"), "a\nb");
    EXPECT_EQ(PrintableLine("a\nb"), "a\\x0ab");
}

TEST(Printable, OtherControlCharacters_AreEscaped) {
    EXPECT_EQ(Printable("a\0b\tc\rd\x7f"s), "a\\x00b\\x09c\\x0dd\\x7f");
    EXPECT_EQ(Printable("\x1f \x20"), "\\x1f  ");
}

TEST(Printable, SecondControlSet_IsEscaped) {
    EXPECT_EQ(Printable("\xC2\x80 \xC2\x9B"
                        "31m \xC2\x9F"),
              "\\xc2\\x80 \\xc2\\x9b31m \\xc2\\x9f");
    EXPECT_EQ(Printable("\xC2\xA0"), "\xC2\xA0");
}

TEST(Printable, SecondControlSetOfEightBits_IsNoUtf8) {
    EXPECT_EQ(Printable("\x80 \x9b"
                        "31m \x9f \xff \xfe"),
              "\\x80 \\x9b31m \\x9f \\xff \\xfe");
}

TEST(Printable, Surrogates_AreEscaped) {
    EXPECT_EQ(Printable("\xED\x9F\xBF"), "\xED\x9F\xBF");
    EXPECT_EQ(Printable("\xED\xA0\x80"), "\\xed\\xa0\\x80");
    EXPECT_EQ(Printable("\xED\xBF\xBF"), "\\xed\\xbf\\xbf");
    EXPECT_EQ(Printable("\xEE\x80\x80"), "\xEE\x80\x80");
}

TEST(Printable, OverlongForms_AreEscaped) {
    EXPECT_EQ(Printable("\xC0\x9B"), "\\xc0\\x9b");
    EXPECT_EQ(Printable("\xC1\xBF"), "\\xc1\\xbf");
    EXPECT_EQ(Printable("\xE0\x80\x9B"), "\\xe0\\x80\\x9b");
    EXPECT_EQ(Printable("\xE0\x9F\xBF"), "\\xe0\\x9f\\xbf");
    EXPECT_EQ(Printable("\xF0\x80\x80\x9B"), "\\xf0\\x80\\x80\\x9b");
    EXPECT_EQ(Printable("\xF0\x8F\xBF\xBF"), "\\xf0\\x8f\\xbf\\xbf");
}

TEST(Printable, CodesAboveUnicode_AreEscaped) {
    EXPECT_EQ(Printable("\xF4\x8F\xBF\xBF"), "\xF4\x8F\xBF\xBF");
    EXPECT_EQ(Printable("\xF4\x90\x80\x80"), "\\xf4\\x90\\x80\\x80");
    EXPECT_EQ(Printable("\xF8\x88\x80\x80\x80"), "\\xf8\\x88\\x80\\x80\\x80");
}

TEST(Printable, TruncatedSequence_IsEscapedAndTheNextCharacterStays) {
    EXPECT_EQ(Printable("\xC3"), "\\xc3");
    EXPECT_EQ(Printable("\xC3"
                        "a"),
              "\\xc3a");
    EXPECT_EQ(Printable("\xE2\x82"), "\\xe2\\x82");
    EXPECT_EQ(Printable("\xE2\x82"
                        "a"),
              "\\xe2\\x82a");
    EXPECT_EQ(Printable("\xF0\x9F\x9A\033[m"), "\\xf0\\x9f\\x9a\\x1b[m");
    EXPECT_EQ(Printable("\xE2\xC3\xBC"), "\\xe2\xC3\xBC");
}

}  // namespace
}  // namespace cli
