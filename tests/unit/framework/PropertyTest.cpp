#include <framework/Array.h>
#include <framework/Property.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

using cimple::Array;
using cimple::Datetime;
using cimple::Property;
using cimple::String;

TEST(Property, New_IsNull) { EXPECT_EQ(Property<std::uint16_t>().null, 1); }

TEST(Property, AssignedNumber_IsNotNull) {
    Property<std::uint16_t> property;
    property = 0;
    EXPECT_EQ(property.null, 0);
    EXPECT_EQ(property.value, 0);
}

TEST(Property, Text_TakesTextsOfEveryKind) {
    Property<String> property;
    property = "literal";
    EXPECT_STREQ(property.value.c_str(), "literal");
    property = std::string("standard");
    EXPECT_STREQ(property.value.c_str(), "standard");
    property = String("own");
    EXPECT_STREQ(property.value.c_str(), "own");
    EXPECT_EQ(property.null, 0);
}

TEST(Property, Array_TakesAListOfElements) {
    Property<Array<std::uint16_t>> numbers;
    numbers = {2};
    EXPECT_EQ(numbers.value, Array<std::uint16_t>({2}));
    numbers = {0};
    EXPECT_EQ(numbers.value, Array<std::uint16_t>({0}));
    Property<Array<String>> texts;
    texts = {"Status OK"};
    EXPECT_EQ(texts.value, Array<String>({"Status OK"}));
    texts = {"a", "b"};
    EXPECT_EQ(texts.value.size(), 2u);
    EXPECT_EQ(texts.null, 0);
}

TEST(Property, EmptyArray_IsNotNull) {
    Property<Array<bool>> property;
    property = Array<bool>();
    EXPECT_EQ(property.null, 0);
}

TEST(Property, Datetime_TakesTheEmptyInterval) {
    Property<Datetime> property;
    property = Datetime(0);
    EXPECT_EQ(property.value.to_string(), "00000000000000.000000:000");
    EXPECT_EQ(property.null, 0);
}

TEST(Property, CopyOfNull_IsNull) {
    Property<String> target;
    target = "text";
    target = Property<String>();
    EXPECT_EQ(target.null, 1);
}

TEST(Property, Clear_MakesItNull) {
    Property<String> property;
    property = "text";
    property.clear();
    EXPECT_EQ(property.null, 1);
    EXPECT_STREQ(property.value.c_str(), "");
}
