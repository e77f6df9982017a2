#include <gtest/gtest.h>
#include <host/schema/DateTimeText.h>

namespace host {
namespace {

constexpr std::uint64_t kHour = 3'600'000'000;
constexpr std::uint64_t kDay = 24 * kHour;

TEST(DateTimeText, TimeStampsAndIntervals_AreDateTimes) {
    for (const char* const text :
         {"20240229123456.123456+060", "19700101000000.000000-720", "99991231235959.999999+000",
          "00000000000000.000000:000", "99999999235959.999999:000", "2024**********.******+***",
          "20240229123456.******+060", "****0229123456.123456+060"})
        EXPECT_TRUE(IsDateTime(text)) << text;
}

TEST(DateTimeText, WhatIsNone_IsRefused) {
    for (const char* const text :
         {"", "2024-02-29", "20240229123456.123456+06", "20240229123456.123456+0600",
          "20230229123456.123456+060", "20241329123456.123456+060", "20240229243456.123456+060",
          "20240229126056.123456+060", "20240229123460.123456+060", "20240229123456,123456+060",
          "20240229123456.123456 060", "2024022912345x.123456+060", "00000000000000.000000:001",
          "00000000240000.000000:000"})
        EXPECT_FALSE(IsDateTime(text)) << text;
}

TEST(DateTimeText, TimeStamp_CountsFrom1970InUtc) {
    EXPECT_EQ(ToMicroseconds("19700101000000.000000+000"), 0U);
    EXPECT_EQ(ToMicroseconds("19700102000000.000007+000"), kDay + 7);
    EXPECT_EQ(ToMicroseconds("19700102000000.000000+060"), kDay - kHour);
    EXPECT_EQ(ToMicroseconds("19700102000000.000000-060"), kDay + kHour);
}

TEST(DateTimeText, TimeStampBefore1970_CountsAsZero) {
    EXPECT_EQ(ToMicroseconds("19691231235959.000000+000"), 0U);
    EXPECT_EQ(ToMicroseconds("****1231235959.000000+000"), 0U);
}

TEST(DateTimeText, UnknownDigits_ReadAsTheLowest) {
    EXPECT_EQ(ToMicroseconds("1970**02000000.******+000"), kDay);
    EXPECT_EQ(ToMicroseconds("197001**000000.000001+000"), 1U);
}

TEST(DateTimeText, Interval_CountsItsDays) {
    EXPECT_FALSE(IsInterval("19700101000000.000000+000"));
    EXPECT_TRUE(IsInterval("00000002010000.000003:000"));
    EXPECT_EQ(ToMicroseconds("00000002010000.000003:000"), 2 * kDay + kHour + 3);
}

}  // namespace
}  // namespace host
