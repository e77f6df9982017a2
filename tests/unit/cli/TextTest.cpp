#include <cli/Text.h>
#include <gtest/gtest.h>

namespace cli {
namespace {

TEST(Text, Values_AreReadable) {
    EXPECT_EQ(ValueText({CMPI_string, {}}), "(none)");
    EXPECT_EQ(ValueText({CMPI_boolean, true}), "true");
    EXPECT_EQ(ValueText({CMPI_ARRAY | CMPI_string, std::vector<host::Value>{}}), "{ }");
    EXPECT_EQ(ValueText({CMPI_ARRAY | CMPI_uint16,
                         std::vector<host::Value>{{CMPI_uint16, std::uint64_t{2}},
                                                  {CMPI_uint16, std::uint64_t{3}}}}),
              "{ 2, 3 }");
}

TEST(Text, ValueOfSeveralLines_StandsBelowItsFirst) {
    EXPECT_EQ(ValuesText({{"Data", {CMPI_string, std::string("a\nb")}}}),
              "  Data = a\n         b\n");
}

TEST(Text, Table_AlignsItsTexts) {
    EXPECT_EQ(Table({{"a", "1"}, {"long", "2"}}), "  a     1\n  long  2\n");
}

TEST(Text, TableInANarrowPlace_ContinuesItsTexts) {
    const std::vector<std::pair<std::string, std::string>> rows = {{"a", "one two three four five"},
                                                                   {"long", "x"}};
    EXPECT_EQ(Table(rows, 30),
              "  a     one two three four\n"
              "        five\n"
              "  long  x\n");
}

TEST(Text, TableWithoutRoomForTwoColumns_HasOne) {
    EXPECT_EQ(Table({{"a", "one two three four five"}, {"a-long-name", "x y"}}, 30),
              "  a  one two three four five\n"
              "  a-long-name  x y\n");
    EXPECT_EQ(Table({{"a-long-name", "one two three four five"}}, 30),
              "  a-long-name  one two three\n"
              "    four five\n");
}

TEST(Text, WordTooLongForATablesColumn_StaysInItsRow) {
    EXPECT_EQ(Table({{"a", "/a/name/of/twenty-six/letters end"}, {"long", "x"}}, 30),
              "  a     /a/name/of/twenty-six/letters\n"
              "        end\n"
              "  long  x\n");
}

TEST(Text, WrappedLine_IsContinuedWithAnIndent) {
    EXPECT_EQ(Wrap("166-901-001 Bus 0 failed", 16, 2, 4),
              "  166-901-001\n"
              "      Bus 0\n"
              "      failed\n");
}

TEST(Text, WrappedText_KeepsItsLinesAndEmptyOnes) {
    EXPECT_EQ(Wrap("one\n\ntwo", 40, 2), "  one\n\n  two\n");
}

TEST(Text, WrappedText_KeepsItsBlanks) {
    EXPECT_EQ(Wrap("a file  name", 40, 2), "  a file  name\n");
}

TEST(Text, WrappedText_CountsCharacters) {
    EXPECT_EQ(Wrap("ää öö üü", 8, 0), "ää öö üü\n");
    EXPECT_EQ(Wrap("ää öö üü", 7, 0), "ää öö\nüü\n");
}

TEST(Text, Values_DoNothingToATerminal) {
    EXPECT_EQ(ValuesText({{"Data", {CMPI_string, std::string("a\033[2J\nb")}}}),
              "  Data = a\\x1b[2J\n         b\n");
    EXPECT_EQ(InstanceText({{"root/x", "A", {{"K", {CMPI_string, std::string("\n")}}}}, {}}),
              "root/x:A.K=\"\\x0a\"\n");
}

TEST(Text, WordLongerThanTheWidth_StandsAlone) {
    EXPECT_EQ(Wrap("a abcdefghijkl b", 6, 0), "a\nabcdefghijkl\nb\n");
}

TEST(Text, TimeStamp_IsReadable) {
    EXPECT_EQ(TimeText("20240531120003.000000+120"), "2024-05-31 12:00:03 +02:00");
    EXPECT_EQ(TimeText("20240531120003.000000-210"), "2024-05-31 12:00:03 -03:30");
}

TEST(Text, Interval_StaysAsItIs) {
    EXPECT_EQ(TimeText("00000000000000.000000:000"), "00000000000000.000000:000");
}

TEST(Text, Lists_AreSentences) {
    EXPECT_EQ(Listed({"a"}), "a");
    EXPECT_EQ(Listed({"a", "b", "c"}), "a, b and c");
    EXPECT_EQ(Counted(1, "bus", "busses"), "1 bus");
    EXPECT_EQ(Counted(0, "bus", "busses"), "0 busses");
}

}  // namespace
}  // namespace cli
