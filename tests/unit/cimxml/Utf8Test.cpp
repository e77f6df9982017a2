#include <cimxml/codec/Utf8.h>
#include <gtest/gtest.h>

namespace cimxml {
namespace {

TEST(Utf8, CharactersOfEveryLength_AreCounted) {
    EXPECT_EQ(CharacterLength("a"), 1U);
    EXPECT_EQ(CharacterLength("\xC3\xBC"), 2U);
    EXPECT_EQ(CharacterLength("\xE2\x82\xAC"), 3U);
    EXPECT_EQ(CharacterLength("\xF0\x9F\x98\x80"), 4U);
}

TEST(Utf8, WhatIsNoUtf8_HasNoLength) {
    EXPECT_EQ(CharacterLength(""), 0U);
    EXPECT_EQ(CharacterLength("\xBC"), 0U);              // begins in the middle
    EXPECT_EQ(CharacterLength("\xE2\x82"), 0U);          // ends in the middle
    EXPECT_EQ(CharacterLength("\xE2z\xAC"), 0U);         // another character in between
    EXPECT_EQ(CharacterLength("\xC0\xAF"), 0U);          // longer than needed
    EXPECT_EQ(CharacterLength("\xED\xA0\x80"), 0U);      // half of a surrogate pair
    EXPECT_EQ(CharacterLength("\xF4\x90\x80\x80"), 0U);  // above the last character
    EXPECT_EQ(CharacterLength("\xFF"), 0U);
}

TEST(Utf8, CharactersThatXmlForbids_HaveNoLength) {
    EXPECT_EQ(CharacterLength(std::string_view("\0", 1)), 0U);
    EXPECT_EQ(CharacterLength("\x01"), 0U);
    EXPECT_EQ(CharacterLength("\xEF\xBF\xBE"), 0U);
    EXPECT_EQ(CharacterLength("\n"), 1U);
}

TEST(Utf8, Text_IsJudgedToItsEnd) {
    EXPECT_TRUE(IsXmlText("f\xC3\xBCr"));
    EXPECT_TRUE(IsXmlText(""));
    EXPECT_FALSE(IsXmlText("f\xC3\xBCr\x02"));
}

TEST(Utf8, Char16_IsEncodedInAsManyBytesAsItNeeds) {
    EXPECT_EQ(FromChar16('a'), "a");
    EXPECT_EQ(FromChar16(0xFC), "\xC3\xBC");
    EXPECT_EQ(FromChar16(0x20AC), "\xE2\x82\xAC");
}

}  // namespace
}  // namespace cimxml
