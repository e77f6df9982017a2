#include <framework/Datetime.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace cimple {

namespace {

using Text = std::array<char, Datetime::kTextSize + 1>;

constexpr std::size_t kPointPosition = 14;
constexpr std::size_t kSignPosition = 21;
constexpr std::uint64_t kMicrosecondsPerSecond = 1'000'000;
constexpr std::uint64_t kMicrosecondsPerMinute = 60 * kMicrosecondsPerSecond;
constexpr std::uint64_t kMicrosecondsPerHour = 60 * kMicrosecondsPerMinute;
constexpr std::uint64_t kMicrosecondsPerDay = 24 * kMicrosecondsPerHour;
constexpr std::uint64_t kLongestInterval = 100'000'000 * kMicrosecondsPerDay - 1;
constexpr int kSecondsPerMinute = 60;

template <class... Parts>
Text format(const char* layout, Parts... parts) {
    char buffer[96];  // room for any value of the parts
    std::snprintf(buffer, sizeof buffer, layout, parts...);
    Text text{};
    std::copy_n(buffer, Datetime::kTextSize, text.begin());
    return text;
}

std::uint32_t number_at(const Text& text, std::size_t position, std::size_t digits) {
    std::uint32_t number = 0;
    std::from_chars(&text[position], &text[position] + digits, number);
    return number;
}

bool is_well_formed(std::string_view text) {
    if (text.size() != Datetime::kTextSize) return false;
    const std::string_view signs = "+-:";
    if (text[kPointPosition] != '.' || signs.find(text[kSignPosition]) == signs.npos) return false;
    return std::ranges::count_if(text, [](char c) { return c >= '0' && c <= '9'; }) ==
           static_cast<std::ptrdiff_t>(Datetime::kTextSize - 2);
}

bool is_time_of_day(const Text& text) {
    return number_at(text, 8, 2) < 24 && number_at(text, 10, 2) < 60 && number_at(text, 12, 2) < 60;
}

bool is_date(const Text& text) {
    const std::uint32_t month = number_at(text, 4, 2);
    const std::uint32_t day = number_at(text, 6, 2);
    return month >= 1 && month <= 12 && day >= 1 && day <= 31;
}

}  // namespace

Datetime::Datetime(std::uint64_t microseconds) {
    const std::uint64_t length = std::min(microseconds, kLongestInterval);
    const auto part = [length](std::uint64_t unit, std::uint64_t perNext) {
        return static_cast<unsigned>(length / unit % perNext);
    };
    text = format("%08u%02u%02u%02u.%06u:000", part(kMicrosecondsPerDay, 100'000'000),
                  part(kMicrosecondsPerHour, 24), part(kMicrosecondsPerMinute, 60),
                  part(kMicrosecondsPerSecond, 60), part(1, kMicrosecondsPerSecond));
}

Datetime Datetime::now() {
    std::timespec time{};
    std::timespec_get(&time, TIME_UTC);
    std::tm local{};
    localtime_r(&time.tv_sec, &local);
    const int utc = static_cast<int>(local.tm_gmtoff / kSecondsPerMinute);
    Datetime result;
    result.text = format("%04d%02d%02d%02d%02d%02d.%06ld%c%03d", local.tm_year + 1900,
                         local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec,
                         time.tv_nsec / 1000, utc < 0 ? '-' : '+', std::abs(utc));
    return result;
}

std::optional<Datetime> Datetime::from_text(std::string_view text) {
    if (!is_well_formed(text)) return std::nullopt;
    Datetime result;
    std::copy(text.begin(), text.end(), result.text.begin());
    if (!is_time_of_day(result.text)) return std::nullopt;
    if (!result.is_interval() && !is_date(result.text)) return std::nullopt;
    return result;
}

bool Datetime::is_interval() const { return text[kSignPosition] == ':'; }

bool Datetime::get_timestamp(std::uint32_t& year, std::uint32_t& month, std::uint32_t& day,
                             std::uint32_t& hours, std::uint32_t& minutes, std::uint32_t& seconds,
                             std::uint32_t& microseconds, std::int32_t& utc) const {
    if (is_interval()) return false;
    year = number_at(text, 0, 4);
    month = number_at(text, 4, 2);
    day = number_at(text, 6, 2);
    hours = number_at(text, 8, 2);
    minutes = number_at(text, 10, 2);
    seconds = number_at(text, 12, 2);
    microseconds = number_at(text, 15, 6);
    const auto offset = static_cast<std::int32_t>(number_at(text, 22, 3));
    utc = text[kSignPosition] == '-' ? -offset : offset;
    return true;
}

}  // namespace cimple
