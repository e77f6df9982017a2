#include <framework/String.h>
#include <gtest/gtest.h>

#include <string>

using cimple::String;

TEST(String, Default_IsTheSharedEmptyText) {
    EXPECT_STREQ(String().c_str(), "");
    EXPECT_EQ(String().c_str(), String::_empty.text);
    EXPECT_EQ(String("").c_str(), String::_empty.text);
    EXPECT_EQ(String(std::string()).c_str(), String::_empty.text);
}

TEST(String, NullText_IsTheEmptyText) {
    EXPECT_EQ(String(static_cast<const char*>(nullptr)).c_str(), String::_empty.text);
}

TEST(String, Copy_SharesTheText) {
    const String original = "I2C Bus";
    const String copy = original;
    EXPECT_EQ(copy.c_str(), original.c_str());
    EXPECT_EQ(copy.size(), 7u);
}

TEST(String, AssignmentToOneCopy_LeavesTheOther) {
    String first = "one";
    const String second = first;
    first = "two";
    EXPECT_STREQ(first.c_str(), "two");
    EXPECT_STREQ(second.c_str(), "one");
}

TEST(String, Assignment_TakesTextsOfEveryKind) {
    String text;
    text = "literal";
    EXPECT_STREQ(text.c_str(), "literal");
    text = std::string("standard");
    EXPECT_STREQ(text.c_str(), "standard");
    text = String("own");
    EXPECT_STREQ(text.c_str(), "own");
}

TEST(String, AssignmentToItself_KeepsTheText) {
    String text = "text";
    const String& same = text;
    text = same;
    EXPECT_STREQ(text.c_str(), "text");
    text = text.c_str();
    EXPECT_STREQ(text.c_str(), "text");
}

TEST(String, Equal_ComparesLetterCaseAndLength) {
    EXPECT_TRUE(String("Bus").equal("Bus"));
    EXPECT_FALSE(String("Bus").equal("bus"));
    EXPECT_FALSE(String("Bus").equal("Buses"));
    EXPECT_TRUE(String("Bus") == "Bus");
    EXPECT_TRUE(String("Bus") != String("bus"));
}

TEST(String, StandardTextWithNul_IsKeptWhole) {
    const String text = std::string("a\0b", 3);
    EXPECT_EQ(text.size(), 3u);
    EXPECT_FALSE(text.equal("a"));
}
