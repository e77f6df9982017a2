// The numbered result lines of a record's text: "166-", the message number, "-", how many
// controllers had been asked by then, and a blank.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace cli {

struct ResultLine {
    std::size_t position;  // where it begins in the text
    unsigned int message;
    unsigned int controller;  // counted from 1; 0 before the first one is asked
};

// In the text's order. The line of a silent controller follows the text before it without a line
// break, so a result line counts wherever it stands.
std::vector<ResultLine> FindResultLines(const std::string& text);

// The message numbers of controllers that could not be judged, of failed busses (901 is bus 0), and
// of what the machine's completion codes from 0xC0 on are told with (803 is 0xC0).
inline constexpr unsigned int kPassed = 0;
inline constexpr unsigned int kBadLength = 801;
inline constexpr unsigned int kNotDelivered = 802;
inline constexpr unsigned int kFirstCompletionCode = 803;
inline constexpr unsigned int kLastCompletionCode = 824;
inline constexpr unsigned int kUnsupportedMachine = 899;
inline constexpr unsigned int kFirstBus = 901;

bool IsUnjudgedController(const ResultLine& line);

}  // namespace cli
