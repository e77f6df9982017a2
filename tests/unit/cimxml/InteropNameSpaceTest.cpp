#include "OperationsFixture.h"

namespace cimxml {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

class InteropNameSpaceTest : public OperationsTest {
protected:
    std::string Ask(const std::string& operation, std::vector<Parameter> parameters) const {
        return Call(operation, std::move(parameters), "ROOT/interop");
    }

    // The manager's path, from its name.
    host::ObjectPath Manager() const {
        const NameSpaces all = MakeAll();
        return all[0]->EnumerateInstanceNames({"root/interop", "CIM_ObjectManager", {}}).names[0];
    }

private:
    static NameSpaces MakeAll() {
        NameSpaces all;
        all.push_back(InteropNameSpace(INTEROP_SCHEMA, "1.2.3", {}));
        return all;
    }
};

TEST_F(InteropNameSpaceTest, EveryNameSpace_IsTold) {
    const std::string answer = Ask("EnumerateInstances", {Class("CIM_Namespace"), List({"Name"})});
    for (const char* name : {"root/test", "root/other", "root/interop"})
        EXPECT_THAT(answer, HasSubstr("<VALUE>" + std::string(name) + "</VALUE>"));
    EXPECT_EQ(All(answer, "INSTANCE", "CLASSNAME").size(), 3U);
}

TEST_F(InteropNameSpaceTest, ObjectManager_SaysItsVersion) {
    EXPECT_THAT(Ask("EnumerateInstances", {Class("CIM_ObjectManager"), List({"Version"})}),
                HasSubstr("<PROPERTY NAME=\"Version\" TYPE=\"string\"><VALUE>1.2.3</VALUE>"));
}

TEST_F(InteropNameSpaceTest, BaseClass_FindsThemAll) {
    EXPECT_THAT(
        All(Ask("EnumerateInstanceNames", {Class("CIM_ManagedElement")}), "INSTANCENAME",
            "CLASSNAME"),
        ElementsAre("CIM_ObjectManager", "CIM_Namespace", "CIM_Namespace", "CIM_Namespace"));
}

TEST_F(InteropNameSpaceTest, Instance_IsFoundByItsPath) {
    EXPECT_THAT(Ask("GetInstance", {{"InstanceName", Manager()}, List({"ElementName"})}),
                HasSubstr("<VALUE>bmci2c</VALUE>"));
    host::ObjectPath other = Manager();
    other.keys.back().value.data = std::string("other");
    EXPECT_THAT(ErrorIn(Ask("GetInstance", {{"InstanceName", other}})),
                HasSubstr("6: There is no instance 'root/interop:CIM_ObjectManager."));
}

TEST_F(InteropNameSpaceTest, Classes_AreThoseOfTheServer) {
    const auto names =
        All(Ask("EnumerateClassNames", {Flag("DeepInheritance", true)}), "CLASSNAME", "NAME");
    EXPECT_THAT(names, Contains("CIM_Namespace"));
    EXPECT_THAT(names, testing::Not(Contains("T_Thing")));
}

TEST_F(InteropNameSpaceTest, Nothing_IsAssociated) {
    for (const char* operation : {"Associators", "AssociatorNames", "References", "ReferenceNames"})
        EXPECT_EQ(Ask(operation, {{"ObjectName", Manager()}}), "<IRETURNVALUE></IRETURNVALUE>");
    EXPECT_EQ(ErrorIn(Ask("Associators", {{"ObjectName", Manager()}, Class("No", "AssocClass")})),
              "4: The class 'No' does not exist.");
}

TEST_F(InteropNameSpaceTest, Methods_CannotBeCalled) {
    EXPECT_EQ(ErrorIn(Invoke(Manager(), "StopService")),
              "7: The method 'StopService' of this server cannot be called.");
    EXPECT_EQ(ErrorIn(Invoke(Manager(), "Dance")),
              "17: The class 'CIM_ObjectManager' has no method 'Dance'.");
}

TEST_F(InteropNameSpaceTest, SchemaThatCannotBeRead_IsALoadError) {
    EXPECT_THROW(InteropNameSpace("/nowhere/interop.mof", "1", {}), host::LoadError);
    EXPECT_THROW(InteropNameSpace(std::string(HOST_TEST_DATA) + "/test.mof", "1", {}),
                 host::LoadError);
}

}  // namespace
}  // namespace cimxml
