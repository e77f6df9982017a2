#include <gtest/gtest.h>
#include <host/Value.h>

#include "Values.h"

namespace host {
namespace {

TEST(ObjectPath, ToString_OfAClass_IsNameSpaceAndClass) {
    EXPECT_EQ((ObjectPath{"root/QUVSD", "Job", {}}).ToString(), "root/QUVSD:Job");
    EXPECT_EQ((ObjectPath{"", "Job", {}}).ToString(), "Job");
}

TEST(ObjectPath, ToString_OfAnInstance_QuotesTextsOnly) {
    const ObjectPath path{"root/QUVSD",
                          "Job",
                          {{"Name", Text("a \"b\" \\c")},
                           {"Id", {CMPI_uint32, std::uint64_t{3}}},
                           {"Offset", {CMPI_sint8, std::int64_t{-4}}},
                           {"On", {CMPI_boolean, true}},
                           {"Off", {CMPI_boolean, false}},
                           {"Size", {CMPI_real64, 2.5}},
                           {"Nothing", {CMPI_string, {}}}}};
    EXPECT_EQ(path.ToString(),
              "root/QUVSD:Job.Name=\"a \\\"b\\\" \\\\c\",Id=3,Offset=-4,On=true,Off=false,"
              "Size=2.5,Nothing=\"\"");
}

TEST(ObjectPath, ToString_WithAReference_QuotesItsPath) {
    const auto end =
        std::make_shared<const ObjectPath>(ObjectPath{"root/QUVSD", "Job", {{"Id", Text("x")}}});
    const ObjectPath path{"root/QUVSD", "Link", {{"From", {CMPI_ref, end}}}};
    EXPECT_EQ(path.ToString(), "root/QUVSD:Link.From=\"root/QUVSD:Job.Id=\\\"x\\\"\"");
}

TEST(ParseObjectPath, WhatToStringWrote_ComesBack) {
    for (const char* const text :
         {"root/QUVSD:Job", "Job", "Job.Id=3", "root/QUVSD:Job.Name=\"a \\\"b\\\" \\\\c\",Id=-3",
          "a:B.Path=\"root/QUVSD:Job.Id=\\\"x,y=z\\\"\",Flag=true,Off=false", "B.Name=\"\""}) {
        const auto path = ParseObjectPath(text);
        ASSERT_TRUE(path) << text;
        EXPECT_EQ(path->ToString(), text);
    }
}

TEST(ParseObjectPath, PlainValues_AreTypedByTheirForm) {
    const auto path = ParseObjectPath("J.A=18446744073709551615,B=-1,C=TRUE,D=FALSE");
    ASSERT_TRUE(path);
    ASSERT_EQ(path->keys.size(), 4U);
    EXPECT_EQ(path->keys[0].value.type, CMPI_uint64);
    EXPECT_EQ(std::get<std::uint64_t>(path->keys[0].value.data), 18446744073709551615U);
    EXPECT_EQ(std::get<std::int64_t>(path->keys[1].value.data), -1);
    EXPECT_TRUE(std::get<bool>(path->keys[2].value.data));
    EXPECT_FALSE(std::get<bool>(path->keys[3].value.data));
}

TEST(ParseObjectPath, WhatIsNoPath_IsRefused) {
    for (const char* const text :
         {"", "root/x:", ".Id=3", "Job.", "Job.Id", "Job.=3", "Job.Id=", "Job.Id=x", "Job.Id=3,",
          "Job.Id=\"x", "Job.Id=\"x\"y", "Job.Id=\"x\\"})
        EXPECT_FALSE(ParseObjectPath(text)) << text;
}

TEST(FindValue, NameInAnyCase_IsFound) {
    const std::vector<NamedValue> values{{"A", Text("1")}, {"Name", Text("2")}};
    const Value* const found = FindValue(values, "nAME");
    ASSERT_TRUE(found);
    EXPECT_EQ(std::get<std::string>(found->data), "2");
    EXPECT_FALSE(FindValue(values, "Nam"));
}

}  // namespace
}  // namespace host
