// A date-time and its parts.
#pragma once

#include <framework/Datetime.h>

#include <cstdint>

struct TimeStamp {
    cimple::Datetime datetime;
    std::uint32_t year = 0;
    std::uint32_t month = 0;
    std::uint32_t day = 0;
    std::uint32_t hours = 0;
    std::uint32_t minutes = 0;
    std::uint32_t seconds = 0;
    std::uint32_t microseconds = 0;
    std::int32_t utc = 0;  // minutes east of UTC

    // Fills the parts from the date-time; false when it is an interval.
    bool BreakDown() {
        return datetime.get_timestamp(year, month, day, hours, minutes, seconds, microseconds, utc);
    }
};
