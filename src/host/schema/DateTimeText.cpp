#include <host/schema/DateTimeText.h>

#include <algorithm>
#include <chrono>

namespace host {

namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::microseconds;
using std::chrono::minutes;
using std::chrono::seconds;

constexpr std::size_t kLength = 25;
constexpr std::size_t kPointAt = 14;
constexpr std::size_t kSignAt = 21;
constexpr int kLeapYear = 2000;  // stands for an unknown year

// The number in a field; its unknown digits read as 0.
int Field(const std::string& text, std::size_t at, std::size_t length) {
    int number = 0;
    for (const char digit : text.substr(at, length))
        number = number * 10 + (digit == '*' ? 0 : digit - '0');
    return number;
}

bool IsUnknown(const std::string& text, std::size_t at, std::size_t length) {
    return text.substr(at, length).find('*') != std::string::npos;
}

bool HasForm(const std::string& text) {
    if (text.size() != kLength || text[kPointAt] != '.') return false;
    if (std::string("+-:").find(text[kSignAt]) == std::string::npos) return false;
    for (std::size_t at = 0; at < kLength; ++at) {
        const bool isDigit = (text[at] >= '0' && text[at] <= '9') || text[at] == '*';
        if (!isDigit && at != kPointAt && at != kSignAt) return false;
    }
    return true;
}

std::chrono::year_month_day DateOf(const std::string& text) {
    const auto known = [&](std::size_t at, std::size_t length, int lowest) {
        return IsUnknown(text, at, length) ? lowest : Field(text, at, length);
    };
    return std::chrono::year(known(0, 4, kLeapYear)) / static_cast<unsigned int>(known(4, 2, 1)) /
           known(6, 2, 1);
}

microseconds TimeOfDay(const std::string& text) {
    return hours(Field(text, 8, 2)) + minutes(Field(text, 10, 2)) + seconds(Field(text, 12, 2)) +
           microseconds(Field(text, 15, 6));
}

}  // namespace

bool IsInterval(const std::string& text) { return text[kSignAt] == ':'; }

bool IsDateTime(const std::string& text) {
    if (!HasForm(text)) return false;
    if (Field(text, 8, 2) > 23 || Field(text, 10, 2) > 59 || Field(text, 12, 2) > 59) return false;
    return IsInterval(text) ? text.ends_with(":000") : DateOf(text).ok();
}

std::uint64_t ToMicroseconds(const std::string& text) {
    if (IsInterval(text))
        return static_cast<std::uint64_t>(
            (microseconds(days(Field(text, 0, 8))) + TimeOfDay(text)).count());
    if (IsUnknown(text, 0, 4)) return 0;
    const minutes offset(Field(text, kSignAt + 1, 3) * (text[kSignAt] == '-' ? -1 : 1));
    const auto time = std::chrono::sys_days(DateOf(text)) + TimeOfDay(text) - offset;
    return static_cast<std::uint64_t>(
        std::max<std::int64_t>(0, microseconds(time.time_since_epoch()).count()));
}

}  // namespace host
