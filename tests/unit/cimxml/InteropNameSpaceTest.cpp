#include <host/requests/InstanceRequests.h>
#include <mof/Reader.h>

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
    EXPECT_THAT(All(Ask("EnumerateInstanceNames", {Class("CIM_ManagedElement")}), "INSTANCENAME",
                    "CLASSNAME"),
                ElementsAre("CIM_ObjectManager", "CIM_Namespace", "CIM_Namespace", "CIM_Namespace",
                            "CIM_RegisteredProfile", "CIM_RegisteredProfile"));
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

TEST_F(InteropNameSpaceTest, Manager_IsNotAssociated) {
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

// A namespace with one diagnostic service.
class ServiceNameSpace : public NameSpace {
public:
    ServiceNameSpace() : NameSpace("root/service"), classes(mof::ReadFile(INTEROP_SCHEMA)) {}

    const host::ClassRepository& Classes() const override { return classes; }
    host::InstancesResult EnumerateInstances(const host::ObjectPath&,
                                             host::PropertyList) const override {
        return {{}, {{service, {}}}};
    }
    host::NamesResult EnumerateInstanceNames(const host::ObjectPath& classPath) const override {
        EXPECT_EQ(classPath.ToString(), "root/service:CIM_DiagnosticService");
        return {{}, {service}};
    }
    host::InstancesResult GetInstance(const host::ObjectPath& path,
                                      host::PropertyList properties) const override {
        EXPECT_EQ(path.ToString(), service.ToString());
        host::Instance instance{path, {{"Caption", {CMPI_string, std::string("tests")}}}};
        std::vector<host::Instance> all{instance};
        host::KeepListed(all, properties);
        return {{}, all};
    }
    host::InstancesResult Associators(const host::AssociationQuery&,
                                      host::PropertyList) const override {
        return {};
    }
    host::NamesResult AssociatorNames(const host::AssociationQuery&) const override { return {}; }
    host::InstancesResult References(const host::AssociationQuery&,
                                     host::PropertyList) const override {
        return {};
    }
    host::NamesResult ReferenceNames(const host::AssociationQuery&) const override { return {}; }
    host::MethodResult InvokeMethod(const host::ObjectPath&, const std::string&,
                                    const std::vector<host::NamedValue>&) const override {
        return {};
    }

private:
    const host::ClassRepository classes;
    const host::ObjectPath service{
        "root/service", "CIM_DiagnosticService", {{"Name", {CMPI_string, std::string("test")}}}};
};

class ProfilesTest : public testing::Test {
protected:
    static constexpr const char* kRegistration = "DMTF:Profile Registration:1.0.0";
    static constexpr const char* kBusTest = "QUV:BMC I2C Bus Test:1.0.0";
    static constexpr const char* kServicePath = "root/service:CIM_DiagnosticService.Name=\"test\"";

    ProfilesTest() { interop->Meet({&services, interop.get()}); }

    static host::ObjectPath Profile(const std::string& id) {
        return {"root/interop", "CIM_RegisteredProfile", {{"InstanceID", {CMPI_string, id}}}};
    }

    static std::vector<std::string> Texts(const std::vector<host::ObjectPath>& paths) {
        std::vector<std::string> texts;
        for (const host::ObjectPath& path : paths) texts.push_back(path.ToString());
        return texts;
    }

    // The names of what conforms to the profile, or the other way round.
    std::vector<std::string> Conforming(const host::ObjectPath& source,
                                        const std::string& resultClass = "",
                                        const std::string& role = "") const {
        const host::NamesResult result = interop->AssociatorNames(
            {source, "CIM_ElementConformsToProfile", resultClass, role, ""});
        EXPECT_TRUE(result.status.IsOk()) << result.status.text;
        return Texts(result.names);
    }

    const ServiceNameSpace services;
    const std::unique_ptr<NameSpace> interop =
        InteropNameSpace(INTEROP_SCHEMA, "1.2.3", {"root/service"});
};

TEST_F(ProfilesTest, TwoProfiles_AreRegistered) {
    const auto profiles =
        interop->EnumerateInstances({"root/interop", "CIM_RegisteredProfile", {}}, nullptr);
    ASSERT_EQ(profiles.instances.size(), 2U);
    const auto number = [](const host::Instance& profile, const char* property) {
        return std::get<std::uint64_t>(host::FindValue(profile.properties, property)->data);
    };
    EXPECT_EQ(profiles.instances[0].path.ToString(), Profile(kRegistration).ToString());
    EXPECT_EQ(number(profiles.instances[0], "RegisteredOrganization"), 2U);
    EXPECT_EQ(profiles.instances[1].path.ToString(), Profile(kBusTest).ToString());
    EXPECT_EQ(number(profiles.instances[1], "RegisteredOrganization"), 1U);
}

TEST_F(ProfilesTest, Service_ConformsToTheProfileOfTheBusTest) {
    EXPECT_THAT(Conforming(Profile(kBusTest), "", "ConformantStandard"), ElementsAre(kServicePath));
    EXPECT_THAT(Conforming(Profile(kBusTest), "CIM_Service"), ElementsAre(kServicePath));
    EXPECT_THAT(Conforming(Profile(kBusTest), "CIM_Job"), testing::IsEmpty());
}

TEST_F(ProfilesTest, Profiles_ConformToProfileRegistration) {
    EXPECT_THAT(Conforming(Profile(kRegistration), "", "ConformantStandard"),
                ElementsAre(Profile(kRegistration).ToString(), Profile(kBusTest).ToString()));
    EXPECT_THAT(Conforming(Profile(kBusTest), "", "ManagedElement"),
                ElementsAre(Profile(kRegistration).ToString()));
}

TEST_F(ProfilesTest, CentralInstance_IsGotFromItsNameSpace) {
    const std::vector<std::string> list{"Caption"};
    const auto found = interop->Associators(
        {Profile(kBusTest), "CIM_ElementConformsToProfile", "CIM_DiagnosticService", "", ""},
        &list);
    ASSERT_EQ(found.instances.size(), 1U);
    EXPECT_EQ(found.instances[0].path.ToString(), kServicePath);
    EXPECT_EQ(found.instances[0].properties.size(), 1U);
}

TEST_F(ProfilesTest, Conformances_AreReferencesAndInstances) {
    const host::AssociationQuery query{.source = Profile(kBusTest)};
    const auto references = interop->References(query, nullptr).instances;
    ASSERT_EQ(references.size(), 2U);
    EXPECT_EQ(Texts(interop->ReferenceNames(query).names).back(),
              references.back().path.ToString());
    EXPECT_EQ(interop->GetInstance(references.back().path, nullptr).instances.size(), 1U);
    EXPECT_EQ(
        interop->EnumerateInstances({"root/interop", "CIM_ElementConformsToProfile", {}}, nullptr)
            .instances.size(),
        3U);
    const host::AssociationQuery other{.source = Profile(kBusTest),
                                       .associationClass = "CIM_Dependency"};
    EXPECT_THAT(interop->References(other, nullptr).instances, testing::IsEmpty());
}

}  // namespace
}  // namespace cimxml
