#include "OperationsFixture.h"

namespace cimxml {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class InstanceOperationsTest : public OperationsTest {
protected:
    static constexpr const char* kThree =
        "<INSTANCENAME CLASSNAME=\"T_Widget\"><KEYBINDING NAME=\"Name\">"
        "<KEYVALUE VALUETYPE=\"string\">three</KEYVALUE></KEYBINDING></INSTANCENAME>";

    static Parameter Object(const std::string& name) {
        return {"ObjectName", host::ObjectPath{"", "T_Thing", {{"name", {CMPI_string, name}}}}};
    }
};

TEST_F(InstanceOperationsTest, Instances_OfABaseClass_AreThoseOfAllThatDerive) {
    EXPECT_THAT(All(Call("EnumerateInstances", {Class("t_thing")}), "INSTANCE", "CLASSNAME"),
                ElementsAre("T_Thing", "T_Thing", "T_Widget"));
    EXPECT_THAT(
        All(Call("EnumerateInstanceNames", {Class("t_thing")}), "INSTANCENAME", "CLASSNAME"),
        ElementsAre("T_Thing", "T_Thing", "T_Widget"));
}

TEST_F(InstanceOperationsTest, ClassThatNobodyServes_HasNone) {
    EXPECT_EQ(Call("EnumerateInstances", {Class("T_Orphan")}), "<IRETURNVALUE></IRETURNVALUE>");
    EXPECT_EQ(Call("EnumerateInstanceNames", {Class("T_Orphan")}), "<IRETURNVALUE></IRETURNVALUE>");
}

TEST_F(InstanceOperationsTest, UnknownClass_IsInvalid) {
    EXPECT_EQ(ErrorIn(Call("EnumerateInstances", {Class("T_No")})),
              "5: There is no class 'T_No' in the namespace 'root/test'.");
}

TEST_F(InstanceOperationsTest, Instance_HasNameAndListedProperties) {
    EXPECT_EQ(Call("EnumerateInstances", {Class("T_Widget"), List({"caption", "U8"})}),
              "<IRETURNVALUE><VALUE.NAMEDINSTANCE>" + std::string(kThree) +
                  "<INSTANCE CLASSNAME=\"T_Widget\">"
                  "<PROPERTY NAME=\"Caption\" TYPE=\"string\"><VALUE>third</VALUE></PROPERTY>"
                  "<PROPERTY NAME=\"U8\" TYPE=\"uint8\"></PROPERTY>"
                  "</INSTANCE></VALUE.NAMEDINSTANCE></IRETURNVALUE>");
}

TEST_F(InstanceOperationsTest, EmptyPropertyList_LeavesTheName) {
    EXPECT_EQ(Call("EnumerateInstances", {Class("T_Widget"), List({})}),
              "<IRETURNVALUE><VALUE.NAMEDINSTANCE>" + std::string(kThree) +
                  "<INSTANCE CLASSNAME=\"T_Widget\"></INSTANCE></VALUE.NAMEDINSTANCE>"
                  "</IRETURNVALUE>");
}

TEST_F(InstanceOperationsTest, ShallowInheritance_LeavesOutWhatSubclassesAdd) {
    const auto shallow =
        Call("EnumerateInstances", {Class("T_Element"), Flag("DeepInheritance", false)});
    EXPECT_THAT(shallow, HasSubstr(kThree));
    EXPECT_THAT(shallow, HasSubstr("NAME=\"Caption\""));
    EXPECT_THAT(shallow, Not(HasSubstr("NAME=\"U16\"")));
    EXPECT_THAT(Call("EnumerateInstances", {Class("T_Element")}), HasSubstr("NAME=\"U16\""));
}

TEST_F(InstanceOperationsTest, LocalOnly_LeavesWhatTheClassItselfDeclares) {
    EXPECT_THAT(All(Call("EnumerateInstances", {Class("T_Numbered"), Flag("LocalOnly", true)}),
                    "PROPERTY", "NAME"),
                ElementsAre("Number"));
    EXPECT_THAT(All(Call("EnumerateInstances", {Class("T_Numbered")}), "PROPERTY", "NAME"),
                ElementsAre("Name", "Caption", "Number"));
}

TEST_F(InstanceOperationsTest, OriginAndQualifiers_ComeWhenAskedFor) {
    EXPECT_EQ(Call("EnumerateInstances", {Class("T_Numbered"), Flag("IncludeClassOrigin", true),
                                          Flag("IncludeQualifiers", true), List({"Number"})}),
              "<IRETURNVALUE><VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME=\"T_Numbered\">"
              "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE=\"string\">four</KEYVALUE>"
              "</KEYBINDING><KEYBINDING NAME=\"Number\"><KEYVALUE VALUETYPE=\"numeric\">44"
              "</KEYVALUE></KEYBINDING></INSTANCENAME><INSTANCE CLASSNAME=\"T_Numbered\">"
              "<QUALIFIER NAME=\"Description\" TYPE=\"string\" PROPAGATED=\"true\" "
              "TRANSLATABLE=\"true\"><VALUE>Anything with a name.</VALUE></QUALIFIER>"
              "<PROPERTY NAME=\"Number\" TYPE=\"uint32\" CLASSORIGIN=\"T_Numbered\">"
              "<QUALIFIER NAME=\"Key\" TYPE=\"boolean\" OVERRIDABLE=\"false\"><VALUE>TRUE</VALUE>"
              "</QUALIFIER><VALUE>44</VALUE></PROPERTY></INSTANCE></VALUE.NAMEDINSTANCE>"
              "</IRETURNVALUE>");
}

TEST_F(InstanceOperationsTest, GetInstance_IsTheProvidersAnswer) {
    const auto get = [&](const host::ObjectPath& path) {
        return Call("GetInstance", {{"InstanceName", path}, List({"Caption"})});
    };
    EXPECT_EQ(get({"", "T_THING", {{"NAME", {CMPI_string, std::string("two")}}}}),
              "<IRETURNVALUE><INSTANCE CLASSNAME=\"T_Thing\"><PROPERTY NAME=\"Caption\" "
              "TYPE=\"string\"><VALUE>second</VALUE></PROPERTY></INSTANCE></IRETURNVALUE>");
    EXPECT_EQ(ErrorIn(get({"", "T_Thing", {{"Name", {CMPI_string, std::string("TWO")}}}})),
              "6: There is no instance 'root/test:T_Thing.Name=\"TWO\"'.");
    EXPECT_EQ(ErrorIn(get({"", "T_Orphan", {}})), "6: There is no instance 'root/test:T_Orphan'.");
    EXPECT_EQ(ErrorIn(get({"", "T_Element", {{"Name", {CMPI_string, std::string("two")}}}})),
              "6: There is no instance 'root/test:T_Element.Name=\"two\"'.");
    EXPECT_EQ(ErrorIn(get({"", "T_No", {}})),
              "5: There is no class 'T_No' in the namespace 'root/test'.");
}

TEST_F(InstanceOperationsTest, KeyWithoutName_IsTheOnlyOne) {
    const host::ObjectPath path{"", "T_Thing", {{"", {CMPI_string, std::string("two")}}}};
    EXPECT_THAT(Call("GetInstance", {{"InstanceName", path}}), HasSubstr("second"));
    const host::ObjectPath several{"", "T_Numbered", {{"", {CMPI_uint64, std::uint64_t{44}}}}};
    EXPECT_EQ(ErrorIn(Call("GetInstance", {{"InstanceName", several}})),
              "4: A key value without a name does not say which key of the class 'T_Numbered' "
              "it is.");
    const host::ObjectPath none{"", "T_Base", {{"", {CMPI_uint64, std::uint64_t{44}}}}};
    EXPECT_EQ(ErrorIn(Call("GetInstance", {{"InstanceName", none}})),
              "4: The class 'T_Base' has no keys.");
}

TEST_F(InstanceOperationsTest, Associators_HavePathsOnThisServer) {
    EXPECT_EQ(
        Call("Associators", {Object("one"), Class("T_Refused", "AssocClass"), List({"Caption"})}),
        "<IRETURNVALUE><VALUE.OBJECTWITHPATH><INSTANCEPATH><NAMESPACEPATH>"
        "<HOST>server:5988</HOST><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
        "<NAMESPACE NAME=\"test\"/></LOCALNAMESPACEPATH></NAMESPACEPATH>" +
            std::string(kThree) +
            "</INSTANCEPATH><INSTANCE CLASSNAME=\"T_Widget\"><PROPERTY NAME=\"Caption\" "
            "TYPE=\"string\"><VALUE>third</VALUE></PROPERTY></INSTANCE>"
            "</VALUE.OBJECTWITHPATH></IRETURNVALUE>");
}

TEST_F(InstanceOperationsTest, AssociatorNames_FollowRoles) {
    const auto names = [&](const std::string& role) {
        return All(Call("AssociatorNames",
                        {Object("one"), Class("T_Refused", "AssocClass"), {"Role", role}}),
                   "INSTANCENAME", "CLASSNAME");
    };
    EXPECT_THAT(names("FROM"), ElementsAre("T_Widget"));
    EXPECT_THAT(names("To"), IsEmpty());
}

TEST_F(InstanceOperationsTest, References_HoldTheSource) {
    EXPECT_THAT(All(Call("References", {Object("one"), Class("T_Refused", "ResultClass")}),
                    "PROPERTY.REFERENCE", "NAME"),
                ElementsAre("From", "To"));
    const auto names = Call("ReferenceNames", {Object("one"), Class("T_Refused", "ResultClass")});
    EXPECT_THAT(names, HasSubstr("<OBJECTPATH><INSTANCEPATH>"));
    EXPECT_THAT(All(names, "KEYBINDING", "NAME"), ElementsAre("From", "Name", "To", "Name"));
}

TEST_F(InstanceOperationsTest, GetInstance_IsAnsweredFromAnEnumerationWhereNeedBe) {
    const auto links = Call("EnumerateInstanceNames", {Class("T_Refused")});
    ASSERT_EQ(All(links, "INSTANCENAME", "CLASSNAME").front(), "T_Refused");
    const auto reference = [](const char* cls, const char* name) {
        return host::Value{CMPI_ref, std::make_shared<const host::ObjectPath>(host::ObjectPath{
                                         "", cls, {{"Name", {CMPI_string, std::string(name)}}}})};
    };
    const auto get = [&](const char* from) {
        const host::ObjectPath path{
            "",
            "T_Refused",
            {{"From", reference("T_Thing", from)}, {"To", reference("T_Widget", "three")}}};
        return Call("GetInstance", {{"InstanceName", path}, List({"From"})});
    };
    EXPECT_THAT(All(get("one"), "PROPERTY.REFERENCE", "NAME"), ElementsAre("From"));
    EXPECT_THAT(ErrorIn(get("two")), HasSubstr("6: There is no instance 'root/test:T_Refused."));
}

TEST_F(InstanceOperationsTest, ReferencesOfAClass_AreTheAssociationClassesThatCanHoldIt) {
    const auto names = [&](const std::string& cls, std::vector<Parameter> filters) {
        filters.push_back(Class(cls, "ObjectName"));
        return All(Call("ReferenceNames", filters), "CLASSNAME", "NAME");
    };
    EXPECT_THAT(names("t_thing", {}),
                ElementsAre("T_Link", "T_Refused", "T_Answered", "T_Failing", "T_Mute"));
    EXPECT_THAT(names("T_Thing", {Class("T_Refused", "ResultClass")}), ElementsAre("T_Refused"));
    EXPECT_THAT(names("T_Thing", {Class("T_Mute", "ResultClass"), {"Role", "from"}}), IsEmpty());
    EXPECT_THAT(names("T_Orphan", {Class("T_Mute", "ResultClass"), {"Role", "from"}}),
                ElementsAre("T_Mute"));
    EXPECT_THAT(names("T_Whole", {}), IsEmpty());
}

TEST_F(InstanceOperationsTest, AssociatorsOfAClass_AreTheClassesAtTheOtherEnds) {
    const auto names = [&](std::vector<Parameter> filters) {
        filters.push_back(Class("T_Thing", "ObjectName"));
        return All(Call("AssociatorNames", filters), "CLASSNAME", "NAME");
    };
    EXPECT_THAT(names({}), ElementsAre("T_Element", "T_Orphan"));
    EXPECT_THAT(names({Class("T_Link", "AssocClass")}), ElementsAre("T_Element"));
    EXPECT_THAT(names({Class("T_Mute", "AssocClass"), {"ResultRole", "FROM"}}),
                ElementsAre("T_Orphan"));
    EXPECT_THAT(names({Class("T_Link", "AssocClass"), Class("T_Widget", "ResultClass")}),
                ElementsAre("T_Widget"));
    EXPECT_THAT(names({Class("T_Whole", "ResultClass")}), IsEmpty());
}

TEST_F(InstanceOperationsTest, ClassesAroundAClass_HavePathsOnThisServer) {
    const std::string path =
        "<VALUE.OBJECTWITHPATH><CLASSPATH><NAMESPACEPATH><HOST>server:5988</HOST>"
        "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"test\"/>"
        "</LOCALNAMESPACEPATH></NAMESPACEPATH>";
    EXPECT_THAT(Call("Associators", {Class("T_Thing", "ObjectName"), Class("T_Link", "AssocClass"),
                                     List({"Caption"})}),
                HasSubstr(path + "<CLASSNAME NAME=\"T_Element\"/></CLASSPATH><CLASS "
                                 "NAME=\"T_Element\"><PROPERTY NAME=\"Caption\""));
    EXPECT_THAT(Call("References", {Class("T_Thing", "ObjectName"), Class("T_Mute", "ResultClass"),
                                    Flag("IncludeQualifiers", true)}),
                HasSubstr(path + "<CLASSNAME NAME=\"T_Mute\"/></CLASSPATH><CLASS NAME=\"T_Mute\">"
                                 "<QUALIFIER NAME=\"Association\""));
}

TEST_F(InstanceOperationsTest, UnknownClasses_AroundAClass_AreInvalid) {
    EXPECT_EQ(ErrorIn(Call("References", {Class("T_No", "ObjectName")})),
              "5: There is no class 'T_No' in the namespace 'root/test'.");
    EXPECT_EQ(
        ErrorIn(Call("References", {Class("T_Thing", "ObjectName"), Class("T_No", "ResultClass")})),
        "4: The association class 'T_No' does not exist.");
    EXPECT_EQ(ErrorIn(Call("Associators",
                           {Class("T_Thing", "ObjectName"), Class("T_No", "ResultClass")})),
              "4: The result class 'T_No' does not exist.");
}

TEST_F(InstanceOperationsTest, UnknownAssociationClass_IsInvalid) {
    EXPECT_EQ(ErrorIn(Call("Associators", {Object("one"), Class("T_No", "AssocClass")})),
              "4: The association class 'T_No' does not exist.");
}

}  // namespace
}  // namespace cimxml
