// Numbers that clients write as texts.
#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace host {

// The number, when the whole text is one of that type. `base`: of an integer, else 10.
template <class Number, class... Base>
std::optional<Number> NumberIn(std::string_view text, Base... base) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number, base...);
    if (text.empty() || read.ec != std::errc{} || read.ptr != end) return std::nullopt;
    return number;
}

}  // namespace host
