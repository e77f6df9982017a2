#include "OperationsFixture.h"

namespace cimxml {
namespace {

using testing::StartsWith;

using MethodCallTest = OperationsTest;

TEST_F(MethodCallTest, Arguments_AreTypedByTheClass) {
    const host::Value numbers{ArrayOf(CMPI_string),
                              std::vector<host::Value>{{CMPI_string, std::string("7")}}};
    EXPECT_EQ(
        Invoke(Thing("one"), "Echo",
               {{"TEXT", {CMPI_string, std::string("a<b")}},
                {"number", {CMPI_string, std::string("12")}},
                {"Numbers", numbers},
                {"Other", {CMPI_ref, std::make_shared<const host::ObjectPath>(Thing("two"))}}}),
        "<RETURNVALUE PARAMTYPE=\"uint32\"><VALUE>4</VALUE></RETURNVALUE>"
        "<PARAMVALUE NAME=\"TEXT\" PARAMTYPE=\"string\"><VALUE>a&lt;b</VALUE></PARAMVALUE>"
        "<PARAMVALUE NAME=\"number\" PARAMTYPE=\"uint16\"><VALUE>12</VALUE></PARAMVALUE>"
        "<PARAMVALUE NAME=\"Numbers\" PARAMTYPE=\"uint16\"><VALUE.ARRAY><VALUE>7</VALUE>"
        "</VALUE.ARRAY></PARAMVALUE>"
        "<PARAMVALUE NAME=\"Other\" PARAMTYPE=\"reference\"><VALUE.REFERENCE>"
        "<LOCALINSTANCEPATH><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
        "<NAMESPACE NAME=\"test\"/></LOCALNAMESPACEPATH><INSTANCENAME "
        "CLASSNAME=\"T_Thing\"><KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE=\"string\">two"
        "</KEYVALUE></KEYBINDING></INSTANCENAME></LOCALINSTANCEPATH></VALUE.REFERENCE>"
        "</PARAMVALUE><PARAMVALUE NAME=\"Heard\" PARAMTYPE=\"string\"><VALUE>"
        "root/test:T_Thing.Name=&quot;one&quot;</VALUE></PARAMVALUE>");
}

TEST_F(MethodCallTest, MethodWithoutReturnValue_HasNone) {
    EXPECT_EQ(Invoke(Thing("one"), "ReturnNothing"), "");
}

TEST_F(MethodCallTest, WrongArgument_IsRefused) {
    EXPECT_EQ(ErrorIn(Invoke(Thing("one"), "Echo", {{"No", {}}})),
              "4: The method 'Echo' has no parameter 'No'.");
    EXPECT_EQ(ErrorIn(Invoke(Thing("one"), "Echo", {{"Number", {CMPI_string, std::string("x")}}})),
              "13: The value of the parameter 'Number' of the method 'Echo' is of a wrong type.");
}

TEST_F(MethodCallTest, ProvidersError_IsPassedOn) {
    EXPECT_EQ(ErrorIn(Invoke(Thing("one"), "Fail")), "2: The thing's owner says no.");
    EXPECT_THAT(ErrorIn(Invoke(Thing("one"), "Throw")), StartsWith("1: "));
}

TEST_F(MethodCallTest, UnknownTarget_IsRefused) {
    EXPECT_EQ(ErrorIn(Invoke({"root/none", "T_Thing", {}}, "Echo")),
              "3: Unknown namespace 'root/none'.");
    EXPECT_EQ(ErrorIn(Invoke({"root/test", "T_No", {}}, "Echo")),
              "5: There is no class 'T_No' in the namespace 'root/test'.");
    EXPECT_EQ(ErrorIn(Invoke({"root/test", "T_Widget", {}}, "Echo")),
              "7: The provider of the class 'T_Widget' has no method interface.");
}

}  // namespace
}  // namespace cimxml
