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

TEST(Text, WrappedLine_IsContinuedWithAnIndent) {
    EXPECT_EQ(Wrap("166-901-001 Bus 0 failed", 16, 2, 4),
              "  166-901-001\n"
              "      Bus 0\n"
              "      failed\n");
}

TEST(Text, WrappedText_KeepsItsLinesAndEmptyOnes) {
    EXPECT_EQ(Wrap("one\n\ntwo", 40, 2), "  one\n\n  two\n");
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
