#include <debug/NumberText.h>
#include <gtest/gtest.h>

#include <climits>

TEST(NumberText, Length_Zero_IsOneDigit) { EXPECT_EQ(GetLenOfInt(0, 10), 1); }

TEST(NumberText, Length_CountsDigitsInTheBase) {
    EXPECT_EQ(GetLenOfInt(9, 10), 1);
    EXPECT_EQ(GetLenOfInt(10, 10), 2);
    EXPECT_EQ(GetLenOfInt(255, 2), 8);
    EXPECT_EQ(GetLenOfInt(255, 16), 2);
    EXPECT_EQ(GetLenOfInt(INT_MAX, 10), 10);
}

TEST(NumberText, Length_NegativeOrBaseOutOfRange_IsMinusOne) {
    EXPECT_EQ(GetLenOfInt(-1, 10), -1);
    EXPECT_EQ(GetLenOfInt(10, 1), -1);
    EXPECT_EQ(GetLenOfInt(10, 0), -1);
    EXPECT_EQ(GetLenOfInt(10, 17), -1);
}

TEST(NumberText, IntToStr_IsUpperCaseWithoutPrefix) {
    EXPECT_EQ(IntToStr(255, 16), "FF");
    EXPECT_EQ(IntToStr(0xABCDEF, 16), "ABCDEF");
    EXPECT_EQ(IntToStr(0, 10), "0");
    EXPECT_EQ(IntToStr(1000, 10), "1000");
    EXPECT_EQ(IntToStr(5, 2), "101");
}

TEST(NumberText, IntToStr_NegativeOrBaseOutOfRange_IsEmpty) {
    EXPECT_EQ(IntToStr(-1, 10), "");
    EXPECT_EQ(IntToStr(5, 17), "");
    EXPECT_EQ(IntToStr(5, 1), "");
}

TEST(NumberText, UIntToStr_SmallValues_AreTheDigits) {
    EXPECT_EQ(UIntToStr(2147483647, 10), "2147483647");
}

TEST(NumberText, UIntToStr_Bit31Set_IsEmpty) {
    EXPECT_EQ(UIntToStr(2147483648UL, 10), "");
    EXPECT_EQ(UIntToStr(4294967295UL, 10), "");
}

TEST(NumberText, UIntToStr_BitsAbove31_AreCutOff) { EXPECT_EQ(UIntToStr(0x100000005UL, 10), "5"); }
