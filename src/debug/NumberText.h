// Numbers as text in a base from 2 to 16.
#pragma once

#include <string>

// The number of digits of `value`, at least 1; -1 for a negative value or a base out of range.
int GetLenOfInt(int value, int base);

// The digits of `value`, most significant first, upper case, without sign, prefix or padding; empty
// for a negative value or a base out of range.
std::string IntToStr(int value, int base);

// The same for the value cut to 32 bits and taken as signed, so that values with bit 31 set come
// out empty: no caller needs a larger value or checks for one.
std::string UIntToStr(unsigned long value, int base);
