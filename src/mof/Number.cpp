#include <mof/Characters.h>
#include <mof/Number.h>

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <string>

namespace mof {

namespace {

enum class Base { Binary = 2, Octal = 8, Decimal = 10, Hexadecimal = 16 };

struct IntegerDigits {
    std::string_view digits;
    Base base;
};

bool IsBinaryDigit(char c) { return c == '0' || c == '1'; }
bool IsOctalDigit(char c) { return c >= '0' && c <= '7'; }

template <class Predicate>
bool AllAre(std::string_view digits, Predicate isDigit) {
    return !digits.empty() && std::all_of(digits.begin(), digits.end(), isDigit);
}

// The digits of an integer literal without its sign; nothing if it is not an integer.
std::optional<IntegerDigits> SplitInteger(std::string_view unsignedSpelling) {
    const std::string_view text = unsignedSpelling;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        const auto digits = text.substr(2);
        return AllAre(digits, IsHexDigit) ? std::optional(IntegerDigits{digits, Base::Hexadecimal})
                                          : std::nullopt;
    }
    if (text.ends_with('b') || text.ends_with('B')) {
        const auto digits = text.substr(0, text.size() - 1);
        return AllAre(digits, IsBinaryDigit) ? std::optional(IntegerDigits{digits, Base::Binary})
                                             : std::nullopt;
    }
    if (text.size() > 1 && text.front() == '0' && AllAre(text, IsOctalDigit)) {
        return IntegerDigits{text, Base::Octal};
    }
    const bool isDecimal = AllAre(text, IsDigit) && (text.size() == 1 || text.front() != '0');
    return isDecimal ? std::optional(IntegerDigits{text, Base::Decimal}) : std::nullopt;
}

std::optional<Scalar> IntegerValue(const IntegerDigits& integer, bool negative) {
    constexpr std::uint64_t kLargestSigned = std::numeric_limits<std::int64_t>::max();
    const char* end = integer.digits.data() + integer.digits.size();
    std::uint64_t magnitude = 0;
    const auto result =
        std::from_chars(integer.digits.data(), end, magnitude, static_cast<int>(integer.base));
    if (result.ec != std::errc{} || (negative && magnitude > kLargestSigned + 1)) {
        return std::nullopt;
    }
    if (negative) {
        return static_cast<std::int64_t>(0 - magnitude);
    }
    if (magnitude <= kLargestSigned) {
        return static_cast<std::int64_t>(magnitude);
    }
    return magnitude;
}

// MOF requires digits after the point; from_chars alone would also accept "inf", "nan" and "1.".
bool IsReal(std::string_view text) {
    const std::size_t point = text.find('.');
    return point != std::string_view::npos && point + 1 < text.size() && IsDigit(text[point + 1]) &&
           std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(point), IsDigit);
}

}  // namespace

Scalar ParseNumber(std::string_view spelling, const Place& place) {
    const std::string quoted = "'" + std::string(spelling) + "'";
    const bool negative = spelling.starts_with('-');
    const bool hasSign = negative || spelling.starts_with('+');
    const std::string_view magnitude = spelling.substr(hasSign ? 1 : 0);

    if (const auto integer = SplitInteger(magnitude)) {
        if (const auto value = IntegerValue(*integer, negative)) {
            return *value;
        }
        Fail(place, "The number " + quoted + " does not fit into 64 bits.");
    }
    double real = 0;
    const char* end = magnitude.data() + magnitude.size();
    const auto result = std::from_chars(magnitude.data(), end, real);
    if (!IsReal(magnitude) || result.ptr != end || result.ec == std::errc::invalid_argument) {
        Fail(place, quoted + " is not a number.");
    }
    if (result.ec != std::errc{}) {
        Fail(place, "The number " + quoted + " does not fit into a real64.");
    }
    return negative ? -real : real;
}

}  // namespace mof
