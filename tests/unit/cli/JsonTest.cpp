#include <cli/Json.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace cli {
namespace {

using host::Value;

TEST(Json, Null_IsNull) { EXPECT_EQ(ToJson(Value{CMPI_uint16, {}}).dump(), "null"); }

TEST(Json, Integers_KeepAllTheirDigits) {
    EXPECT_EQ(ToJson(Value{CMPI_uint64, std::numeric_limits<std::uint64_t>::max()}).dump(),
              "18446744073709551615");
    EXPECT_EQ(ToJson(Value{CMPI_sint64, std::numeric_limits<std::int64_t>::min()}).dump(),
              "-9223372036854775808");
}

TEST(Json, DateTime_IsItsCimText) {
    EXPECT_EQ(ToJson(Value{CMPI_dateTime, std::string("00000000000000.000000:000")}).dump(),
              R"("00000000000000.000000:000")");
}

TEST(Json, Reference_IsItsObjectPath) {
    auto path = std::make_shared<const host::ObjectPath>(
        host::ObjectPath{"root/QUVSD", "A", {{"K", {CMPI_string, std::string("v")}}}});
    EXPECT_EQ(ToJson(Value{CMPI_ref, path}).get<std::string>(), R"(root/QUVSD:A.K="v")");
}

TEST(Json, EmptyArray_IsAnEmptyArray) {
    EXPECT_EQ(ToJson(Value{CMPI_ARRAY | CMPI_boolean, std::vector<Value>{}}).dump(), "[]");
}

TEST(Json, Properties_KeepTheirOrder) {
    const std::vector<host::NamedValue> values = {
        {"Z", {CMPI_boolean, true}},
        {"A",
         {CMPI_ARRAY | CMPI_uint32,
          std::vector<Value>{{CMPI_uint32, std::uint64_t{1}}, {CMPI_uint32, {}}}}}};
    EXPECT_EQ(ToJson(values).dump(), R"({"Z":true,"A":[1,null]})");
}

TEST(Json, Instance_HasClassPathAndProperties) {
    const host::Instance instance{{"root/QUVSD", "A", {}}, {{"P", {CMPI_string, std::string()}}}};
    EXPECT_EQ(ToJson(instance).dump(),
              R"({"class":"A","path":"root/QUVSD:A","properties":{"P":""}})");
}

TEST(Json, BytesThatAreNotUtf8_AreReplaced) {
    EXPECT_EQ(JsonText(ToJson(Value{CMPI_string, std::string("a\xff")})), "\"a\xEF\xBF\xBD\"\n");
}

}  // namespace
}  // namespace cli
