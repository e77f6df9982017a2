#include <gtest/gtest.h>
#include <host/schema/TypedValue.h>

#include <limits>

#include "Values.h"

namespace host {
namespace {

Value Natural(std::uint64_t number) { return {CMPI_uint64, number}; }
Value Signed(std::int64_t number) { return {CMPI_sint64, number}; }

// The number that a value has in a type; nothing when it does not fit.
template <class Number>
std::optional<Number> As(const Value& value, CMPIType type) {
    const auto typed = Typed(value, type);
    if (!typed) return std::nullopt;
    EXPECT_EQ(typed->type, type);
    return std::get<Number>(typed->data);
}

TEST(Typed, IntegerWithinTheType_Fits) {
    EXPECT_EQ(As<std::uint64_t>(Natural(255), CMPI_uint8), 255U);
    EXPECT_EQ(As<std::uint64_t>(Signed(65535), CMPI_uint16), 65535U);
    EXPECT_EQ(As<std::uint64_t>(Text("4294967295"), CMPI_uint32), 4294967295U);
    EXPECT_EQ(As<std::uint64_t>(Natural(65), CMPI_char16), 65U);
    EXPECT_EQ(As<std::int64_t>(Signed(-128), CMPI_sint8), -128);
    EXPECT_EQ(As<std::int64_t>(Natural(32767), CMPI_sint16), 32767);
    EXPECT_EQ(As<std::int64_t>(Text("-5"), CMPI_sint32), -5);
    EXPECT_EQ(As<std::int64_t>(Natural(9), CMPI_sint64), 9);
    EXPECT_EQ(As<std::uint64_t>(Text("18446744073709551615"), CMPI_uint64),
              std::numeric_limits<std::uint64_t>::max());
}

TEST(Typed, IntegerOutsideTheType_DoesNotFit) {
    EXPECT_FALSE(Typed(Natural(256), CMPI_uint8));
    EXPECT_FALSE(Typed(Signed(-1), CMPI_uint64));
    EXPECT_FALSE(Typed(Signed(-129), CMPI_sint8));
    EXPECT_FALSE(Typed(Natural(std::numeric_limits<std::uint64_t>::max()), CMPI_sint64));
    EXPECT_FALSE(Typed(Text("65536"), CMPI_uint16));
    for (const char* const text : {"", "x", "1x", " 1", "-1"})
        EXPECT_FALSE(Typed(Text(text), CMPI_uint16)) << text;
    EXPECT_FALSE(Typed({CMPI_boolean, true}, CMPI_uint16));
}

TEST(Typed, RealFromAnyNumberOrText_Fits) {
    EXPECT_EQ(As<double>({CMPI_real64, 2.5}, CMPI_real32), 2.5);
    EXPECT_EQ(As<double>(Signed(-2), CMPI_real64), -2.0);
    EXPECT_EQ(As<double>(Natural(2), CMPI_real64), 2.0);
    EXPECT_EQ(As<double>(Text("1.25"), CMPI_real64), 1.25);
    EXPECT_FALSE(Typed(Text("1.25 "), CMPI_real64));
    EXPECT_FALSE(Typed({CMPI_boolean, true}, CMPI_real64));
}

TEST(Typed, BooleanFromItsWord_Fits) {
    EXPECT_EQ(As<bool>({CMPI_boolean, false}, CMPI_boolean), false);
    EXPECT_EQ(As<bool>(Text("TRUE"), CMPI_boolean), true);
    EXPECT_EQ(As<bool>(Text("false"), CMPI_boolean), false);
    EXPECT_FALSE(Typed(Text("yes"), CMPI_boolean));
    EXPECT_FALSE(Typed(Natural(1), CMPI_boolean));
}

TEST(Typed, StringFromAnotherType_DoesNotFit) {
    EXPECT_EQ(As<std::string>(Text("x"), CMPI_string), "x");
    EXPECT_FALSE(Typed(Natural(1), CMPI_string));
}

TEST(Typed, DateTimeFromItsText_Fits) {
    EXPECT_EQ(As<std::string>(Text("00000000000000.000000:000"), CMPI_dateTime),
              "00000000000000.000000:000");
    EXPECT_FALSE(Typed(Text("today"), CMPI_dateTime));
    EXPECT_FALSE(Typed(Natural(0), CMPI_dateTime));
}

TEST(Typed, ReferenceFromItsText_Fits) {
    using Reference = std::shared_ptr<const ObjectPath>;
    const auto path = As<Reference>(Text("root/a:B.C=\"d\""), CMPI_ref);
    ASSERT_TRUE(path);
    EXPECT_EQ((*path)->ToString(), "root/a:B.C=\"d\"");
    EXPECT_EQ(As<Reference>({CMPI_ref, *path}, CMPI_ref), *path);
    EXPECT_FALSE(Typed(Text(""), CMPI_ref));
    EXPECT_FALSE(Typed(Natural(0), CMPI_ref));
}

TEST(Typed, Instance_FitsOnlyItself) {
    const Value instance{CMPI_instance, std::make_shared<const Instance>()};
    EXPECT_TRUE(Typed(instance, CMPI_instance));
    EXPECT_FALSE(Typed(instance, CMPI_string));
    EXPECT_FALSE(Typed(Text("x"), CMPI_instance));
}

TEST(Typed, Null_FitsEveryType) {
    const auto typed = Typed({}, CMPI_ARRAY | CMPI_string);
    ASSERT_TRUE(typed);
    EXPECT_TRUE(typed->IsNull());
    EXPECT_EQ(typed->type, CMPI_ARRAY | CMPI_string);
}

TEST(Typed, UnknownType_HoldsNothing) { EXPECT_FALSE(Typed(Natural(1), CMPI_ptr)); }

TEST(Typed, Array_IsTypedElementByElement) {
    const Value texts{CMPI_ARRAY | CMPI_string, std::vector<Value>{Text("1"), {}, Text("3")}};
    const auto typed = Typed(texts, CMPI_ARRAY | CMPI_uint16);
    ASSERT_TRUE(typed);
    EXPECT_EQ(typed->type, CMPI_ARRAY | CMPI_uint16);
    const auto& elements = std::get<std::vector<Value>>(typed->data);
    ASSERT_EQ(elements.size(), 3U);
    EXPECT_EQ(std::get<std::uint64_t>(elements[0].data), 1U);
    EXPECT_TRUE(elements[1].IsNull());
    EXPECT_EQ(elements[2].type, CMPI_uint16);
    EXPECT_FALSE(Typed(texts, CMPI_ARRAY | CMPI_boolean));
    EXPECT_FALSE(Typed(texts, CMPI_string));
    EXPECT_FALSE(Typed(Text("1"), CMPI_ARRAY | CMPI_uint16));
}

TEST(TypeOf, EveryDataType_HasItsCode) {
    using mof::DataType;
    const std::pair<DataType, CMPIType> kAll[] = {
        {DataType::Boolean, CMPI_boolean}, {DataType::UInt8, CMPI_uint8},
        {DataType::SInt8, CMPI_sint8},     {DataType::UInt16, CMPI_uint16},
        {DataType::SInt16, CMPI_sint16},   {DataType::UInt32, CMPI_uint32},
        {DataType::SInt32, CMPI_sint32},   {DataType::UInt64, CMPI_uint64},
        {DataType::SInt64, CMPI_sint64},   {DataType::Real32, CMPI_real32},
        {DataType::Real64, CMPI_real64},   {DataType::Char16, CMPI_char16},
        {DataType::String, CMPI_string},   {DataType::DateTime, CMPI_dateTime},
        {DataType::Reference, CMPI_ref},
    };
    for (const auto& [type, code] : kAll) {
        EXPECT_EQ(TypeOf({type, false, ""}), code);
        EXPECT_EQ(TypeOf({type, true, ""}), CMPI_ARRAY | code);
    }
}

TEST(FromLiteral, Literal_ShowsItsType) {
    EXPECT_EQ(FromLiteral(mof::Literal{}).type, CMPI_null);
    EXPECT_EQ(FromLiteral(mof::Scalar{true}).type, CMPI_boolean);
    EXPECT_EQ(FromLiteral(mof::Scalar{std::int64_t{1}}).type, CMPI_sint64);
    EXPECT_EQ(FromLiteral(mof::Scalar{std::uint64_t{1}}).type, CMPI_uint64);
    EXPECT_EQ(FromLiteral(mof::Scalar{1.5}).type, CMPI_real64);
    EXPECT_EQ(FromLiteral(mof::Scalar{std::string("x")}).type, CMPI_string);
    EXPECT_EQ(FromLiteral(std::vector<mof::Scalar>{true}).type, CMPI_ARRAY | CMPI_boolean);
    EXPECT_EQ(FromLiteral(std::vector<mof::Scalar>{}).type, CMPI_ARRAY | CMPI_string);
}

TEST(FromLiteral, LiteralOfAnotherType_IsNull) {
    EXPECT_EQ(std::get<std::uint64_t>(FromLiteral(mof::Scalar{std::int64_t{7}}, CMPI_uint8).data),
              7U);
    const Value misfit = FromLiteral(mof::Scalar{true}, CMPI_uint8);
    EXPECT_TRUE(misfit.IsNull());
    EXPECT_EQ(misfit.type, CMPI_uint8);
}

}  // namespace
}  // namespace host
