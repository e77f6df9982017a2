#include "OperationsFixture.h"

namespace cimxml {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

using ClassOperationsTest = OperationsTest;

TEST_F(ClassOperationsTest, ClassNames_WithoutClass_AreTheRootClasses) {
    EXPECT_THAT(All(Call("EnumerateClassNames"), "CLASSNAME", "NAME"),
                ElementsAre("T_Element", "T_Base", "T_Link", "T_Mute"));
}

TEST_F(ClassOperationsTest, ClassNames_Deep_AreAllOfThem) {
    EXPECT_EQ(All(Call("EnumerateClassNames", {Flag("DeepInheritance", true)}), "CLASSNAME", "NAME")
                  .size(),
              host.Schema().classes.size());
    EXPECT_THAT(
        All(Call("EnumerateClassNames", {Class("t_element"), Flag("DeepInheritance", true)}),
            "CLASSNAME", "NAME"),
        Contains("T_Widget"));
}

TEST_F(ClassOperationsTest, ClassNames_OfAClass_AreThoseDirectlyBelow) {
    EXPECT_THAT(All(Call("EnumerateClassNames", {Class("T_Thing")}), "CLASSNAME", "NAME"),
                ElementsAre("T_Widget"));
    EXPECT_THAT(All(Call("EnumerateClassNames", {Class("T_Element")}), "CLASSNAME", "NAME"),
                Not(Contains("T_Widget")));
    EXPECT_EQ(Call("EnumerateClassNames", {Class("T_Widget")}), "<IRETURNVALUE></IRETURNVALUE>");
}

TEST_F(ClassOperationsTest, UnknownClass_IsAnInvalidClassToEnumerate) {
    for (const char* operation : {"EnumerateClasses", "EnumerateClassNames"})
        EXPECT_EQ(ErrorIn(Call(operation, {Class("T_No")})),
                  "5: There is no class 'T_No' in the namespace 'root/test'.");
}

TEST_F(ClassOperationsTest, UnknownClass_IsNotFoundToGet) {
    EXPECT_EQ(ErrorIn(Call("GetClass", {Class("T_No")})),
              "6: There is no class 'T_No' in the namespace 'root/test'.");
}

TEST_F(ClassOperationsTest, Class_IsLocalWithQualifiersByDefault) {
    EXPECT_EQ(Call("GetClass", {Class("t_numbered")}),
              "<IRETURNVALUE><CLASS NAME=\"T_Numbered\" SUPERCLASS=\"T_Element\">"
              "<PROPERTY NAME=\"Number\" TYPE=\"uint32\">"
              "<QUALIFIER NAME=\"Key\" TYPE=\"boolean\" OVERRIDABLE=\"false\"><VALUE>TRUE</VALUE>"
              "</QUALIFIER></PROPERTY></CLASS></IRETURNVALUE>");
}

TEST_F(ClassOperationsTest, ClassWithAllItHas_SaysWhatIsInherited) {
    EXPECT_EQ(Call("GetClass", {Class("T_Numbered"), Flag("LocalOnly", false),
                                Flag("IncludeClassOrigin", true)}),
              "<IRETURNVALUE><CLASS NAME=\"T_Numbered\" SUPERCLASS=\"T_Element\">"
              // Description is passed on; Experimental is not.
              "<QUALIFIER NAME=\"Description\" TYPE=\"string\" PROPAGATED=\"true\" "
              "TRANSLATABLE=\"true\"><VALUE>Anything with a name.</VALUE></QUALIFIER>"
              "<PROPERTY NAME=\"Name\" TYPE=\"string\" CLASSORIGIN=\"T_Element\" "
              "PROPAGATED=\"true\">"
              "<QUALIFIER NAME=\"Key\" TYPE=\"boolean\" PROPAGATED=\"true\" OVERRIDABLE=\"false\">"
              "<VALUE>TRUE</VALUE></QUALIFIER>"
              "<QUALIFIER NAME=\"MaxLen\" TYPE=\"uint32\" PROPAGATED=\"true\"><VALUE>64</VALUE>"
              "</QUALIFIER></PROPERTY>"
              "<PROPERTY NAME=\"Caption\" TYPE=\"string\" CLASSORIGIN=\"T_Element\" "
              "PROPAGATED=\"true\"><VALUE>no caption</VALUE></PROPERTY>"
              "<PROPERTY NAME=\"Number\" TYPE=\"uint32\" CLASSORIGIN=\"T_Numbered\">"
              "<QUALIFIER NAME=\"Key\" TYPE=\"boolean\" OVERRIDABLE=\"false\"><VALUE>TRUE</VALUE>"
              "</QUALIFIER></PROPERTY></CLASS></IRETURNVALUE>");
}

TEST_F(ClassOperationsTest, RestrictedQualifier_StaysWithItsClass) {
    EXPECT_THAT(Call("GetClass", {Class("T_Element")}),
                HasSubstr("<QUALIFIER NAME=\"Experimental\" TYPE=\"boolean\" "
                          "TOSUBCLASS=\"false\"><VALUE>TRUE</VALUE></QUALIFIER>"));
}

TEST_F(ClassOperationsTest, PropertyList_ChoosesProperties) {
    EXPECT_THAT(
        Call("GetClass", {Class("T_Thing"), Flag("LocalOnly", false),
                          Flag("IncludeQualifiers", false), List({"CAPTION", "No"})}),
        testing::StartsWith("<IRETURNVALUE><CLASS NAME=\"T_Thing\" SUPERCLASS=\"T_Element\">"
                            "<PROPERTY NAME=\"Caption\" TYPE=\"string\" PROPAGATED=\"true\">"
                            "<VALUE>no caption</VALUE></PROPERTY><METHOD NAME=\"Echo\" "));
}

TEST_F(ClassOperationsTest, MembersOfEveryKind_HaveTheirElements) {
    const std::string cls = Call("GetClass", {Class("T_Thing"), Flag("IncludeQualifiers", false)});
    EXPECT_THAT(cls, HasSubstr("<PROPERTY NAME=\"S32\" TYPE=\"sint32\"><VALUE>-5</VALUE>"
                               "</PROPERTY>"));
    EXPECT_THAT(cls, HasSubstr("<PROPERTY.ARRAY NAME=\"Codes\" TYPE=\"uint16\"><VALUE.ARRAY>"
                               "<VALUE>1</VALUE><VALUE>2</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>"));
    EXPECT_THAT(cls, HasSubstr("<PROPERTY.REFERENCE NAME=\"Friend\" "
                               "REFERENCECLASS=\"T_Element\"></PROPERTY.REFERENCE>"));
    EXPECT_THAT(cls, HasSubstr("<PROPERTY NAME=\"Inner\" TYPE=\"string\" "
                               "EmbeddedObject=\"object\"></PROPERTY>"));
    EXPECT_THAT(cls, HasSubstr("<METHOD NAME=\"Echo\" TYPE=\"uint32\">"
                               "<PARAMETER NAME=\"Text\" TYPE=\"string\"></PARAMETER>"
                               "<PARAMETER NAME=\"Number\" TYPE=\"uint16\"></PARAMETER>"
                               "<PARAMETER NAME=\"When\" TYPE=\"datetime\"></PARAMETER>"
                               "<PARAMETER.REFERENCE NAME=\"Other\" REFERENCECLASS=\"T_Element\">"
                               "</PARAMETER.REFERENCE>"
                               "<PARAMETER.ARRAY NAME=\"Numbers\" TYPE=\"uint16\">"
                               "</PARAMETER.ARRAY>"));
}

TEST_F(ClassOperationsTest, Classes_AreEnumeratedLikeTheirNames) {
    EXPECT_THAT(All(Call("EnumerateClasses", {Class("T_Base")}), "CLASS", "NAME"),
                ElementsAre("T_Broken", "T_Whole"));
}

TEST_F(ClassOperationsTest, Qualifier_IsDeclaredWithScopeAndFlavors) {
    EXPECT_EQ(Call("GetQualifier", {{"QualifierName", std::string("key")}}),
              "<IRETURNVALUE><QUALIFIER.DECLARATION NAME=\"Key\" TYPE=\"boolean\" "
              "ISARRAY=\"false\" OVERRIDABLE=\"false\" TOSUBCLASS=\"true\" TRANSLATABLE=\"false\">"
              "<SCOPE REFERENCE=\"true\" PROPERTY=\"true\"/><VALUE>FALSE</VALUE>"
              "</QUALIFIER.DECLARATION></IRETURNVALUE>");
    EXPECT_EQ(Call("GetQualifier", {{"QualifierName", std::string("Description")}}),
              "<IRETURNVALUE><QUALIFIER.DECLARATION NAME=\"Description\" TYPE=\"string\" "
              "ISARRAY=\"false\" OVERRIDABLE=\"true\" TOSUBCLASS=\"true\" TRANSLATABLE=\"true\">"
              "<SCOPE CLASS=\"true\" ASSOCIATION=\"true\" REFERENCE=\"true\" PROPERTY=\"true\" "
              "METHOD=\"true\" PARAMETER=\"true\" INDICATION=\"true\"/></QUALIFIER.DECLARATION>"
              "</IRETURNVALUE>");
}

TEST_F(ClassOperationsTest, UnknownQualifier_IsNotFound) {
    EXPECT_EQ(ErrorIn(Call("GetQualifier", {{"QualifierName", std::string("No")}})),
              "6: There is no qualifier 'No' in the namespace 'root/test'.");
}

TEST_F(ClassOperationsTest, Qualifiers_AreAllEnumerated) {
    EXPECT_EQ(All(Call("EnumerateQualifiers"), "QUALIFIER.DECLARATION", "NAME").size(),
              host.Schema().qualifiers.size());
}

TEST_F(ClassOperationsTest, UnknownNameSpace_IsInvalid) {
    for (const char* operation : {"EnumerateClasses", "EnumerateQualifiers", "GetInstance"})
        EXPECT_EQ(ErrorIn(Call(operation, {}, "root/none")),
                  "3: Unknown namespace 'root/none'.");
}

TEST_F(ClassOperationsTest, OtherOperations_AreNotSupported) {
    for (const char* operation : {"CreateInstance", "ModifyInstance", "DeleteInstance",
                                  "CreateClass", "ExecQuery", "OpenQueryInstances", "Dance"})
        EXPECT_EQ(ErrorIn(Call(operation)),
                  "7: This server has no operation '" + std::string(operation) + "'.");
}

TEST_F(ClassOperationsTest, ParameterOfAnotherOperation_IsInvalid) {
    EXPECT_EQ(ErrorIn(Call("GetClass", {Class("T_Thing"), Flag("DeepInheritance", true)})),
              "4: The operation 'GetClass' has no parameter 'DeepInheritance'.");
}

}  // namespace
}  // namespace cimxml
