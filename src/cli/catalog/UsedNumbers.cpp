#include <cli/catalog/UsedNumbers.h>
#include <test/MessageNumbers.h>

#include <algorithm>

namespace cli {

namespace {

constexpr unsigned short kLastCompletionCode = 824;  // 0xD5

}  // namespace

bool IsUsedNumber(unsigned short number) {
    return number >= kFirstBus || std::ranges::count(RequiredNumbers(), number) != 0;
}

bool IsHeading(unsigned short number) {
    return number == kPassHeading || number == kBusFaultHeading || number == kNotCompletedHeading;
}

std::vector<unsigned short> RequiredNumbers() {
    std::vector<unsigned short> numbers = {
        kPassed,      kFallbackText,    kMachineTypeUnreadable, kMachineTypeEmpty,
        kPassHeading, kBusFaultHeading, kNotCompletedHeading,   kBadResponseLength,
        kSendFailed};
    for (unsigned short number = kFirstCompletionCode; number <= kLastCompletionCode; ++number)
        numbers.push_back(number);
    numbers.push_back(kFirstBus);
    return numbers;
}

}  // namespace cli
