// The message numbers that the test looks up.
#pragma once

#include <vector>

namespace cli {

// Whether the test ever asks for the text: results, headings, the fallback, and every bus.
bool IsUsedNumber(unsigned short number);

// Whether the text stands before others, in generic entries only.
bool IsHeading(unsigned short number);

// Those that every machine needs a text for, ascending; of the busses the first.
std::vector<unsigned short> RequiredNumbers();

}  // namespace cli
