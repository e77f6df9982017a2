#include <gmock/gmock.h>
#include <platform/diagnostics/JsonFormat.h>
#include <platform/diagnostics/LineFormat.h>
#include <spdlog/details/log_msg.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <nlohmann/json.hpp>

namespace {

using testing::StartsWith;
using Clock = std::chrono::system_clock;

constexpr Clock::time_point kNoon{std::chrono::milliseconds(1717156800123)};  // 2024-05-31, UTC

class LineFormatTest : public testing::Test {
protected:
    LineFormatTest() { SetZone("UTC0"); }
    ~LineFormatTest() override {
        ::unsetenv("TZ");
        ::tzset();
    }

    // In the notation of POSIX, in which zones east of Greenwich are negative.
    static void SetZone(const char* zone) {
        ::setenv("TZ", zone, 1);
        ::tzset();
    }

    static std::string Line(spdlog::formatter& format, const std::string& text,
                            Clock::time_point time = kNoon) {
        spdlog::memory_buf_t line;
        format.format({time, {}, "", NQUVZDX20::LevelOf(2), text}, line);
        return {line.data(), line.size()};
    }

    std::string TextLine(const std::string& text, Clock::time_point time = kNoon) {
        return Line(*textFormat, text, time);
    }

    std::string JsonTime(Clock::time_point time = kNoon) {
        return nlohmann::json::parse(Line(*jsonFormat, "text", time)).at("time");
    }

    const std::unique_ptr<spdlog::formatter> textFormat = NQUVZDX20::MakeTextFormat();
    const std::unique_ptr<spdlog::formatter> jsonFormat = NQUVZDX20::MakeJsonFormat();
};

TEST_F(LineFormatTest, Text_HasLocalTimeZoneProcessAndSeverityBeforeIt) {
    SetZone("CET-1");
    EXPECT_EQ(TextLine("some text"), "2024-05-31 13:00:00.123 +01:00 bmci2c[" +
                                         std::to_string(::getpid()) + "] 2: some text\n");
}

struct ZoneCase {
    const char* zone;
    const char* jsonTime;
    const char* textTime;
};

class LineFormatZone : public LineFormatTest, public testing::WithParamInterface<ZoneCase> {};

TEST_P(LineFormatZone, Time_IsLocalWithItsOffset) {
    SetZone(GetParam().zone);
    EXPECT_EQ(JsonTime(), GetParam().jsonTime);
    EXPECT_THAT(TextLine("text"), StartsWith(GetParam().textTime));
}

INSTANTIATE_TEST_SUITE_P(
    Zones, LineFormatZone,
    testing::Values(
        ZoneCase{"UTC0", "2024-05-31T12:00:00.123+00:00", "2024-05-31 12:00:00.123 +00:00 "},
        ZoneCase{"NPT-5:45", "2024-05-31T17:45:00.123+05:45", "2024-05-31 17:45:00.123 +05:45 "},
        ZoneCase{"NST3:30", "2024-05-31T08:30:00.123-03:30", "2024-05-31 08:30:00.123 -03:30 "},
        ZoneCase{"NZD-13", "2024-06-01T01:00:00.123+13:00", "2024-06-01 01:00:00.123 +13:00 "}),
    [](const auto& tested) { return std::string("Case") + std::to_string(tested.index); });

TEST_F(LineFormatTest, EndOfSummerTime_ChangesTheOffsetAtOnce) {
    SetZone("CET-1CEST,M3.5.0,M10.5.0/3");
    const Clock::time_point end{std::chrono::seconds(1729990800)};  // 2024-10-27 01:00 UTC
    const Clock::time_point before = end - std::chrono::milliseconds(1);
    EXPECT_EQ(JsonTime(before), "2024-10-27T02:59:59.999+02:00");
    EXPECT_EQ(JsonTime(end), "2024-10-27T02:00:00.000+01:00");
    EXPECT_THAT(TextLine("text", before), StartsWith("2024-10-27 02:59:59.999 +02:00 "));
    EXPECT_THAT(TextLine("text", end), StartsWith("2024-10-27 02:00:00.000 +01:00 "));
}

struct EscapeCase {
    const char* name;
    std::string text;
    std::string escaped;
};

class LineFormatEscape : public LineFormatTest, public testing::WithParamInterface<EscapeCase> {};

TEST_P(LineFormatEscape, TextLine_HoldsTheTextOnOneLine) {
    EXPECT_THAT(TextLine(GetParam().text), testing::EndsWith("] 2: " + GetParam().escaped + "\n"));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LineFormatEscape,
    testing::Values(EscapeCase{"Empty", "", ""},
                    EscapeCase{"LineFeeds", "\none\n\ntwo\n", R"(\none\n\ntwo\n)"},
                    EscapeCase{"CarriageReturn", "one\r\ntwo", R"(one\x0d\ntwo)"},
                    EscapeCase{"Escape", "\x1b[2J", R"(\x1b[2J)"},
                    EscapeCase{"Zero", std::string("a\0b", 3), R"(a\x00b)"},
                    EscapeCase{"FirstAndLast", "\x01\x1f \x7f~", R"(\x01\x1f \x7f~)"},
                    EscapeCase{"Latin1Controls", "\xc2\x80\xc2\x9f\xc2\xa0",
                               R"(\xc2\x80\xc2\x9f)"
                               "\xc2\xa0"},
                    EscapeCase{"Utf8", "\xc3\xa4 \xe2\x82\xac \xf0\x9f\x98\x80",
                               "\xc3\xa4 \xe2\x82\xac \xf0\x9f\x98\x80"},
                    EscapeCase{"NotUtf8", "bad \xff, cut \xc2", "bad \xff, cut \xc2"},
                    EscapeCase{"Backslash", R"(C:\n)", R"(C:\n)"}),
    [](const auto& tested) { return tested.param.name; });

}  // namespace
