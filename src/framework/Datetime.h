// A CIM date-time: a point in time with an offset from UTC, or an interval. It is kept as its CIM
// text of 25 characters: "yyyymmddhhmmss.mmmmmmsutc" or "ddddddddhhmmss.mmmmmm:000".
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace cimple {

class Datetime {
public:
    // The interval of no length.
    Datetime() = default;

    // An interval in microseconds; longer ones than CIM can write become the longest.
    explicit Datetime(std::uint64_t microseconds);

    // The local time now, with its offset from UTC.
    static Datetime now();

    // A date-time from its CIM text, or none when the text is malformed or a part is out of range.
    static std::optional<Datetime> from_text(std::string_view text);

    // Breaks a point in time down; `utc` is in minutes, positive east of Greenwich. For an interval
    // it returns false and leaves the parts as they are.
    bool get_timestamp(std::uint32_t& year, std::uint32_t& month, std::uint32_t& day,
                       std::uint32_t& hours, std::uint32_t& minutes, std::uint32_t& seconds,
                       std::uint32_t& microseconds, std::int32_t& utc) const;

    bool is_interval() const;
    const char* c_str() const { return text.data(); }
    std::string to_string() const { return text.data(); }

    friend bool operator==(const Datetime&, const Datetime&) = default;

    static constexpr std::size_t kTextSize = 25;

private:
    // With a NUL behind it.
    std::array<char, kTextSize + 1> text = std::to_array("00000000000000.000000:000");
};

}  // namespace cimple
