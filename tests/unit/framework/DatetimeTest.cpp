#include <framework/Datetime.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

using cimple::Datetime;

namespace {

// Year to microseconds and the offset; empty for an interval.
std::vector<long> parts_of(const Datetime& datetime) {
    std::uint32_t parts[7];
    std::int32_t utc = 0;
    if (!datetime.get_timestamp(parts[0], parts[1], parts[2], parts[3], parts[4], parts[5],
                                parts[6], utc)) {
        return {};
    }
    std::vector<long> list(std::begin(parts), std::end(parts));
    list.push_back(utc);
    return list;
}

// The UTC second that a time stamp stands for.
std::time_t second_of(const Datetime& datetime) {
    const std::vector<long> parts = parts_of(datetime);
    std::tm time{};
    time.tm_year = static_cast<int>(parts[0]) - 1900;
    time.tm_mon = static_cast<int>(parts[1]) - 1;
    time.tm_mday = static_cast<int>(parts[2]);
    time.tm_hour = static_cast<int>(parts[3]);
    time.tm_min = static_cast<int>(parts[4]);
    time.tm_sec = static_cast<int>(parts[5]);
    return timegm(&time) - 60 * parts[7];
}

class TimeZone {
public:
    explicit TimeZone(const char* name) {
        setenv("TZ", name, 1);
        tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;
    ~TimeZone() {
        unsetenv("TZ");
        tzset();
    }
};

}  // namespace

TEST(Datetime, Default_IsTheEmptyInterval) {
    EXPECT_EQ(Datetime().to_string(), "00000000000000.000000:000");
    EXPECT_TRUE(Datetime().is_interval());
}

TEST(Datetime, FromZero_IsTheEmptyInterval) { EXPECT_EQ(Datetime(0), Datetime()); }

TEST(Datetime, FromMicroseconds_IsTheirInterval) {
    const std::uint64_t twoDays = 2 * 86'400'000'000;
    EXPECT_EQ(Datetime(twoDays + 3'723'000'004).to_string(), "00000002010203.000004:000");
}

TEST(Datetime, FromTooManyMicroseconds_IsTheLongestInterval) {
    EXPECT_EQ(Datetime(UINT64_MAX).to_string(), "99999999235959.999999:000");
}

TEST(Datetime, Interval_HasNoTimestamp) {
    std::uint32_t part = 77;
    std::int32_t utc = 77;
    EXPECT_FALSE(Datetime(0).get_timestamp(part, part, part, part, part, part, part, utc));
    EXPECT_EQ(part, 77u);
    EXPECT_EQ(utc, 77);
}

TEST(Datetime, FromText_GivesTheParts) {
    const auto east = Datetime::from_text("20260203040506.000789+120");
    ASSERT_TRUE(east);
    EXPECT_THAT(parts_of(*east), testing::ElementsAre(2026, 2, 3, 4, 5, 6, 789, 120));
    const auto west = Datetime::from_text("20261231235959.999999-300");
    ASSERT_TRUE(west);
    EXPECT_THAT(parts_of(*west), testing::ElementsAre(2026, 12, 31, 23, 59, 59, 999999, -300));
    EXPECT_EQ(west->to_string(), "20261231235959.999999-300");
}

TEST(Datetime, FromMalformedText_GivesNone) {
    for (const char* text :
         {"", "20260203040506.000789+12", "20260203040506.000789+1200", "20260203040506,000789+120",
          "20260203040506.000789*120", "2026020304050a.000789+120", "20261303040506.000789+120",
          "20260003040506.000789+120", "20260200040506.000789+120", "20260232040506.000789+120",
          "20260203240506.000789+120", "20260203046006.000789+120", "20260203040560.000789+120",
          "00000000240000.000000:000"}) {
        EXPECT_FALSE(Datetime::from_text(text)) << text;
    }
}

TEST(Datetime, FromIntervalText_TakesDaysThatAreNoDate) {
    const auto interval = Datetime::from_text("99999999235959.999999:000");
    ASSERT_TRUE(interval);
    EXPECT_TRUE(interval->is_interval());
}

TEST(Datetime, Now_IsTheLocalTimeWithItsOffset) {
    for (const auto& [zone, offset] :
         {std::pair{"EAST-5:30", 330L}, std::pair{"WEST+3", -180L}, std::pair{"UTC0", 0L}}) {
        const TimeZone current(zone);
        const std::time_t before = std::time(nullptr);
        const Datetime now = Datetime::now();
        const std::time_t after = std::time(nullptr);
        EXPECT_EQ(parts_of(now).at(7), offset) << zone;
        EXPECT_GE(second_of(now), before) << zone;
        EXPECT_LE(second_of(now), after) << zone;
    }
}

TEST(Datetime, Now_IsWellFormed) {
    const std::string text = Datetime::now().to_string();
    EXPECT_EQ(text.size(), Datetime::kTextSize);
    EXPECT_EQ(Datetime::from_text(text), Datetime::from_text(text.c_str()));
    EXPECT_TRUE(Datetime::from_text(text));
}
