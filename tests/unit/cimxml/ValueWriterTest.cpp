#include <cimxml/codec/InstanceWriter.h>
#include <cimxml/codec/ValueWriter.h>
#include <gtest/gtest.h>

#include <limits>

#include "ArrayOf.h"

namespace cimxml {
namespace {

using host::Instance;
using host::ObjectPath;
using host::Value;

std::string Written(const Value& value) {
    XmlWriter xml;
    WriteValue(xml, value);
    return xml.Take();
}

std::shared_ptr<const ObjectPath> Path(const std::string& nameSpace) {
    return std::make_shared<const ObjectPath>(
        ObjectPath{nameSpace, "T_A", {{"K", {CMPI_string, std::string("v")}}}});
}

TEST(ValueWriter, Null_IsNothing) { EXPECT_EQ(Written({CMPI_string, {}}), ""); }

TEST(ValueWriter, Scalars_AreTexts) {
    EXPECT_EQ(Written({CMPI_boolean, true}), "<VALUE>TRUE</VALUE>");
    EXPECT_EQ(Written({CMPI_boolean, false}), "<VALUE>FALSE</VALUE>");
    EXPECT_EQ(Written({CMPI_uint64, std::numeric_limits<std::uint64_t>::max()}),
              "<VALUE>18446744073709551615</VALUE>");
    EXPECT_EQ(Written({CMPI_sint64, std::numeric_limits<std::int64_t>::min()}),
              "<VALUE>-9223372036854775808</VALUE>");
    EXPECT_EQ(Written({CMPI_char16, std::uint64_t{0x20AC}}), "<VALUE>\xE2\x82\xAC</VALUE>");
    EXPECT_EQ(Written({CMPI_string, std::string("a<b")}), "<VALUE>a&lt;b</VALUE>");
    EXPECT_EQ(Written({CMPI_string, std::string()}), "<VALUE></VALUE>");
}

TEST(ValueWriter, Reals_HaveADecimalPoint) {
    EXPECT_EQ(Written({CMPI_real64, 2.5}), "<VALUE>2.5</VALUE>");
    EXPECT_EQ(Written({CMPI_real64, 3.0}), "<VALUE>3.0</VALUE>");
    EXPECT_EQ(Written({CMPI_real64, 1e300}), "<VALUE>1.0e+300</VALUE>");
    EXPECT_EQ(Written({CMPI_real32, double{0.1F}}), "<VALUE>0.1</VALUE>");
    EXPECT_EQ(Written({CMPI_real64, std::numeric_limits<double>::infinity()}),
              "<VALUE>INF</VALUE>");
    EXPECT_EQ(Written({CMPI_real64, -std::numeric_limits<double>::infinity()}),
              "<VALUE>-INF</VALUE>");
    EXPECT_EQ(Written({CMPI_real64, std::numeric_limits<double>::quiet_NaN()}),
              "<VALUE>NaN</VALUE>");
}

TEST(ValueWriter, Arrays_KeepTheirNulls) {
    EXPECT_EQ(
        Written({ArrayOf(CMPI_uint16), std::vector<Value>{{CMPI_uint16, std::uint64_t{2}}, {}}}),
        "<VALUE.ARRAY><VALUE>2</VALUE><VALUE.NULL/></VALUE.ARRAY>");
    EXPECT_EQ(Written({ArrayOf(CMPI_string), std::vector<Value>{}}), "<VALUE.ARRAY></VALUE.ARRAY>");
}

TEST(ValueWriter, References_SayTheirNameSpace) {
    const std::string name =
        "<INSTANCENAME CLASSNAME=\"T_A\"><KEYBINDING NAME=\"K\"><KEYVALUE VALUETYPE=\"string\">v"
        "</KEYVALUE></KEYBINDING></INSTANCENAME>";
    EXPECT_EQ(Written({CMPI_ref, Path("")}), "<VALUE.REFERENCE>" + name + "</VALUE.REFERENCE>");
    EXPECT_EQ(Written({CMPI_ref, Path("root/x")}),
              "<VALUE.REFERENCE><LOCALINSTANCEPATH><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
              "<NAMESPACE NAME=\"x\"/></LOCALNAMESPACEPATH>" +
                  name + "</LOCALINSTANCEPATH></VALUE.REFERENCE>");
    EXPECT_EQ(Written({ArrayOf(CMPI_ref), std::vector<Value>{{CMPI_ref, Path("")}}}),
              "<VALUE.REFARRAY><VALUE.REFERENCE>" + name + "</VALUE.REFERENCE></VALUE.REFARRAY>");
}

TEST(ValueWriter, KeysOfEveryKind_SayTheirKind) {
    XmlWriter xml;
    WriteInstanceName(xml, {"",
                            "T_A",
                            {{"B", {CMPI_boolean, true}},
                             {"N", {CMPI_sint8, std::int64_t{-3}}},
                             {"C", {CMPI_char16, std::uint64_t{'c'}}},
                             {"Null", {CMPI_string, {}}},
                             {"R", {CMPI_ref, Path("")}}}});
    EXPECT_EQ(xml.Take(),
              "<INSTANCENAME CLASSNAME=\"T_A\">"
              "<KEYBINDING NAME=\"B\"><KEYVALUE VALUETYPE=\"boolean\">TRUE</KEYVALUE></KEYBINDING>"
              "<KEYBINDING NAME=\"N\"><KEYVALUE VALUETYPE=\"numeric\">-3</KEYVALUE></KEYBINDING>"
              "<KEYBINDING NAME=\"C\"><KEYVALUE VALUETYPE=\"string\">c</KEYVALUE></KEYBINDING>"
              "<KEYBINDING NAME=\"R\"><VALUE.REFERENCE><INSTANCENAME CLASSNAME=\"T_A\">"
              "<KEYBINDING NAME=\"K\"><KEYVALUE VALUETYPE=\"string\">v</KEYVALUE></KEYBINDING>"
              "</INSTANCENAME></VALUE.REFERENCE></KEYBINDING></INSTANCENAME>");
}

TEST(ValueWriter, EmbeddedInstance_IsATextOfItsOwn) {
    const Value value{CMPI_instance,
                      std::make_shared<const Instance>(Instance{
                          {"", "T_A", {}}, {{"Caption", {CMPI_string, std::string("a")}}}})};
    EXPECT_EQ(EmbeddedObjectText(value), "instance");
    EXPECT_EQ(TypeText(value.type), "string");
    EXPECT_EQ(Written(value),
              "<VALUE>&lt;INSTANCE CLASSNAME=&quot;T_A&quot;&gt;&lt;PROPERTY "
              "NAME=&quot;Caption&quot; TYPE=&quot;string&quot;&gt;&lt;VALUE&gt;a&lt;/VALUE&gt;"
              "&lt;/PROPERTY&gt;&lt;/INSTANCE&gt;</VALUE>");
}

TEST(ValueWriter, Types_HaveTheNamesOfCim) {
    EXPECT_EQ(TypeText(ArrayOf(CMPI_uint8)), "uint8");
    EXPECT_EQ(TypeText(CMPI_real32), "real32");
    EXPECT_EQ(TypeText(CMPI_dateTime), "datetime");
    EXPECT_EQ(TypeText(CMPI_ref), "reference");
    EXPECT_EQ(EmbeddedObjectText({CMPI_string, {}}), "");
}

}  // namespace
}  // namespace cimxml
