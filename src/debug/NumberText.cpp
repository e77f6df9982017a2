#include <debug/NumberText.h>

#include <cstddef>
#include <cstdint>

namespace {

constexpr int kMinBase = 2;
constexpr int kMaxBase = 16;
constexpr char kDigits[] = "0123456789ABCDEF";

}  // namespace

int GetLenOfInt(int value, int base) {
    if (value < 0 || base < kMinBase || base > kMaxBase) return -1;
    int digits = 1;
    while ((value /= base) != 0) ++digits;
    return digits;
}

std::string IntToStr(int value, int base) {
    const int length = GetLenOfInt(value, base);
    if (length < 0) return {};
    std::string text(static_cast<std::size_t>(length), '0');
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit) {
        *digit = kDigits[value % base];
        value /= base;
    }
    return text;
}

std::string UIntToStr(unsigned long value, int base) {
    return IntToStr(static_cast<int>(static_cast<std::uint32_t>(value)), base);
}
