// CIM date-times as their 25 characters: "yyyymmddhhmmss.mmmmmmsutc" is a time stamp (s and utc:
// the offset in minutes), "ddddddddhhmmss.mmmmmm:000" an interval. A digit may be '*': unknown,
// read as the field's lowest value.
#pragma once

#include <cstdint>
#include <string>

namespace host {

bool IsDateTime(const std::string& text);

// The following take a date-time text.

bool IsInterval(const std::string& text);

// Microseconds of an interval, or of a time stamp since 1970 in UTC (0 for earlier ones).
std::uint64_t ToMicroseconds(const std::string& text);

}  // namespace host
