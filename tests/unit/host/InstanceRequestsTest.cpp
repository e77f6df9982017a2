#include "HostFixture.h"

namespace host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class InstanceRequestsTest : public HostTest {
protected:
    static std::string TextOfProperty(const Instance& instance, const std::string& name) {
        const Value* const value = FindValue(instance.properties, name);
        return value && !value->IsNull() ? std::get<std::string>(value->data) : "nothing";
    }

    static std::vector<std::string> Paths(const InstancesResult& result) {
        std::vector<std::string> paths;
        for (const Instance& instance : result.instances) paths.push_back(instance.path.ToString());
        return paths;
    }

    static std::vector<std::string> Paths(const NamesResult& result) {
        std::vector<std::string> paths;
        for (const ObjectPath& path : result.names) paths.push_back(path.ToString());
        return paths;
    }
};

TEST_F(InstanceRequestsTest, EnumerateInstances_FindsTheClassAndItsSubclasses) {
    const auto result = host.EnumerateInstances(PathTo("t_THING"));
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    EXPECT_THAT(Paths(result),
                ElementsAre("root/test:T_Thing.Name=\"one\"", "root/test:T_Thing.Name=\"two\"",
                            "root/test:T_Widget.Name=\"three\""));
    EXPECT_EQ(TextOfProperty(result.instances[0], "Caption"), "first");
}

TEST_F(InstanceRequestsTest, EnumerateInstances_OfALeafClass_FindsOnlyIt) {
    EXPECT_THAT(Paths(host.EnumerateInstances(PathTo("T_Widget"))),
                ElementsAre("root/test:T_Widget.Name=\"three\""));
}

TEST_F(InstanceRequestsTest, EnumerateInstances_Properties_StandInClassOrderWithDefaults) {
    const auto result = host.EnumerateInstances(PathTo("T_Widget"));
    ASSERT_EQ(result.instances.size(), 1U);
    const auto& properties = result.instances[0].properties;
    ASSERT_EQ(properties.size(), 19U);
    EXPECT_EQ(properties[0].name, "Name");
    EXPECT_EQ(properties[1].name, "Caption");
    EXPECT_EQ(properties[2].name, "Flag");
    EXPECT_TRUE(std::get<bool>(properties[2].value.data));
    EXPECT_TRUE(FindValue(properties, "U8")->IsNull());
    EXPECT_EQ(std::get<std::uint64_t>(FindValue(properties, "U16")->data), 7U);
}

TEST_F(InstanceRequestsTest, EnumerateInstances_TellsWhatTheProviderSetAgainstTheClass) {
    const auto result = host.EnumerateInstances(PathTo("T_Widget"));
    ASSERT_EQ(result.instances.size(), 1U);
    EXPECT_THAT(result.instances[0].refused,
                ElementsAre("The instance of 'T_Widget' has no property 'Number'."));
    EXPECT_THAT(host.EnumerateInstances(PathTo("T_Numbered")).instances.at(0).refused, IsEmpty());
}

TEST_F(InstanceRequestsTest, EnumerateInstances_TellsWhatTheProviderLeftUntouched) {
    const auto result = host.EnumerateInstances(PathTo("T_Widget"));
    ASSERT_EQ(result.instances.size(), 1U);
    const auto& untouched = result.instances[0].untouched;
    EXPECT_EQ(untouched.size(), result.instances[0].properties.size() - 2);
    EXPECT_THAT(untouched, testing::Not(testing::Contains("Name")));
    EXPECT_THAT(untouched, testing::Not(testing::Contains("Caption")));
    EXPECT_THAT(untouched, testing::Contains("U16"));
}

TEST_F(InstanceRequestsTest, EnumerateInstances_WithAList_GivesOnlyTheListed) {
    const std::vector<std::string> list{"CAPTION", "Unknown"};
    const auto result = host.EnumerateInstances(PathTo("T_Widget"), &list);
    ASSERT_EQ(result.instances.size(), 1U);
    ASSERT_EQ(result.instances[0].properties.size(), 1U);
    EXPECT_EQ(TextOfProperty(result.instances[0], "Caption"), "third");
    EXPECT_EQ(result.instances[0].path.ToString(), "root/test:T_Widget.Name=\"three\"");
}

TEST_F(InstanceRequestsTest, EnumerateInstances_WithAnEmptyList_GivesPathsOnly) {
    const std::vector<std::string> list;
    const auto result = host.EnumerateInstances(PathTo("T_Widget"), &list);
    ASSERT_EQ(result.instances.size(), 1U);
    EXPECT_THAT(result.instances[0].properties, IsEmpty());
    EXPECT_EQ(result.instances[0].path.ToString(), "root/test:T_Widget.Name=\"three\"");
}

TEST_F(InstanceRequestsTest, EnumerateInstanceNames_FindsTheClassAndItsSubclasses) {
    const auto result = host.EnumerateInstanceNames(PathTo("T_Thing"));
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    EXPECT_THAT(Paths(result),
                ElementsAre("root/test:T_Thing.Name=\"one\"", "root/test:T_Thing.Name=\"two\"",
                            "root/test:T_Widget.Name=\"three\""));
    EXPECT_THAT(Paths(host.EnumerateInstanceNames(PathTo("T_Numbered"))),
                ElementsAre("root/test:T_Numbered.Name=\"four\",Number=44"));
}

TEST_F(InstanceRequestsTest, NameSpaceOfTheRequest_ReachesTheInstances) {
    const auto result = host.EnumerateInstances({"Root/OTHER", "T_Thing", {}});
    EXPECT_THAT(Paths(result),
                ElementsAre("Root/OTHER:T_Thing.Name=\"one\"", "Root/OTHER:T_Thing.Name=\"two\""));
}

TEST_F(InstanceRequestsTest, UnknownNameSpace_IsAnswered) {
    EXPECT_THAT(host.EnumerateInstances({"root/none", "T_Thing", {}}).status,
                IsFailure(CMPI_RC_ERR_INVALID_NAMESPACE, "Unknown namespace 'root/none'."));
    EXPECT_THAT(host.GetInstance({"root/none", "T_Thing", {}}).status,
                IsFailure(CMPI_RC_ERR_INVALID_NAMESPACE, "Unknown namespace 'root/none'."));
}

TEST_F(InstanceRequestsTest, UnknownClass_IsAnswered) {
    const auto unknown = IsFailure(CMPI_RC_ERR_INVALID_CLASS,
                                   "There is no class 'T_Nothing' in the namespace 'root/test'.");
    EXPECT_THAT(host.EnumerateInstances(PathTo("T_Nothing")).status, unknown);
    EXPECT_THAT(host.EnumerateInstanceNames(PathTo("T_Nothing")).status, unknown);
    EXPECT_THAT(host.GetInstance(PathTo("T_Nothing")).status, unknown);
}

TEST_F(InstanceRequestsTest, ClassWithoutProvider_IsAnswered) {
    const auto unserved =
        IsFailure(CMPI_RC_ERR_NOT_SUPPORTED,
                  "No provider serves the class 'T_Orphan' in the namespace 'root/test'.");
    EXPECT_THAT(host.EnumerateInstances(PathTo("T_Orphan")).status, unserved);
    EXPECT_THAT(host.EnumerateInstanceNames(PathTo("T_Orphan")).status, unserved);
    EXPECT_THAT(host.GetInstance(PathTo("T_Orphan", "x")).status, unserved);
}

TEST_F(InstanceRequestsTest, ClassRegisteredInAnotherNameSpace_IsNotServed) {
    EXPECT_THAT(host.EnumerateInstances({"root/other", "T_Widget", {}}).status,
                IsFailure(CMPI_RC_ERR_NOT_SUPPORTED,
                          "No provider serves the class 'T_Widget' in the namespace "
                          "'root/other'."));
}

TEST_F(InstanceRequestsTest, ProviderWithoutInstanceInterface_IsAnswered) {
    EXPECT_THAT(host.GetInstance(PathTo("T_MethodOnly", "x")).status,
                IsFailure(CMPI_RC_ERR_NOT_SUPPORTED,
                          "The provider of the class 'T_MethodOnly' has no instance interface."));
    EXPECT_THAT(host.EnumerateInstances(PathTo("T_MethodOnly")).status,
                IsFailure(CMPI_RC_ERR_NOT_SUPPORTED,
                          "No provider serves the class 'T_MethodOnly' in the namespace "
                          "'root/test'."));
}

TEST_F(InstanceRequestsTest, FailingProvider_IsQuoted) {
    const auto result = host.EnumerateInstances(PathTo("T_Broken"));
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_ERR_FAILED, "The store is locked."));
    EXPECT_THAT(result.instances, IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(InstanceRequestsTest, ProviderThatReturnsTheWrongKind_IsRefused) {
    EXPECT_THAT(host.EnumerateInstanceNames(PathTo("T_Broken")).status,
                IsFailure(CMPI_RC_ERR_TYPE_MISMATCH, "The request does not ask for such data."));
}

TEST_F(InstanceRequestsTest, BaseClassWithAFailingSubclass_LeavesItOutAndSaysSo) {
    const auto result = host.EnumerateInstances(PathTo("T_Base"));
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    EXPECT_THAT(Paths(result), ElementsAre("root/test:T_Whole.Name=\"five\""));
    const auto messages = Messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].severity, CMPI_SEV_WARNING);
    EXPECT_EQ(messages[0].component, "T_Bad_Provider");
    EXPECT_EQ(messages[0].text, "The class 'T_Broken' is left out: The store is locked.");
}

TEST_F(InstanceRequestsTest, MissingTableEntry_IsNotSupported) {
    const auto missing =
        IsFailure(CMPI_RC_ERR_NOT_SUPPORTED, "The provider does not implement the operation.");
    EXPECT_THAT(host.EnumerateInstances(PathTo("T_Bare")).status, missing);
    EXPECT_THAT(host.EnumerateInstanceNames(PathTo("T_Bare")).status, missing);
    EXPECT_THAT(host.GetInstance(PathTo("T_Bare", "x")).status, missing);
}

TEST_F(InstanceRequestsTest, FactoryThatYieldsNothing_IsNamedEachTime) {
    const auto nothing =
        IsFailure(CMPI_RC_ERR_FAILED,
                  "The function 'T_Null_Provider_Create_InstanceMI' yields no interface.");
    EXPECT_THAT(host.EnumerateInstances(PathTo("T_Null")).status, nothing);
    EXPECT_THAT(host.EnumerateInstances(PathTo("T_Null")).status, nothing);
}

TEST_F(InstanceRequestsTest, FactoryThatAsksItsOwnProvider_IsAnsweredAndDoesNotHang) {
    EXPECT_THAT(host.EnumerateInstances(PathTo("T_Curious")).status,
                IsFailure(CMPI_RC_ERR_FAILED,
                          "The provider 'T_Curious_Provider' was asked while its factory runs."));
}

TEST_F(InstanceRequestsTest, GetInstance_FindsItByItsKeys) {
    const auto result = host.GetInstance(PathTo("t_thing", "two"));
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    ASSERT_EQ(result.instances.size(), 1U);
    EXPECT_EQ(TextOfProperty(result.instances[0], "Caption"), "second");
}

TEST_F(InstanceRequestsTest, GetInstance_WithAList_GivesOnlyTheListed) {
    const std::vector<std::string> list{"Flag"};
    const auto result = host.GetInstance(PathTo("T_Thing", "two"), &list);
    ASSERT_EQ(result.instances.size(), 1U);
    ASSERT_EQ(result.instances[0].properties.size(), 1U);
    EXPECT_EQ(result.instances[0].properties[0].name, "Flag");
}

TEST_F(InstanceRequestsTest, GetInstance_OfNothing_IsNotFound) {
    const auto result = host.GetInstance(PathTo("T_Thing", "none"));
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_ERR_NOT_FOUND,
                                         "There is no instance "
                                         "'root/test:T_Thing.Name=\"none\"'."));
    EXPECT_THAT(result.instances, IsEmpty());
}

TEST_F(InstanceRequestsTest, GetInstance_OfAProviderThatDoesNotSupportIt_IsFoundByEnumeration) {
    const ObjectPath link = host.EnumerateInstanceNames(PathTo("T_Refused")).names.at(0);
    const std::vector<std::string> list{"to"};
    const auto result = host.GetInstance(link, &list);
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    ASSERT_EQ(result.instances.size(), 1U);
    EXPECT_EQ(result.instances[0].path.ToString(), link.ToString());
    ASSERT_EQ(result.instances[0].properties.size(), 1U);
    EXPECT_EQ(result.instances[0].properties[0].name, "To");
    ObjectPath other = link;
    std::swap(other.keys[0].value, other.keys[1].value);
    EXPECT_EQ(host.GetInstance(other).status.code, CMPI_RC_ERR_NOT_FOUND);
    EXPECT_THAT(host.GetInstance(PathTo("T_Failing", "x")).status,
                IsFailure(CMPI_RC_ERR_FAILED, "An end of the link is missing."));
}

TEST_F(InstanceRequestsTest, SchemaAndRegistrations_AreThere) {
    EXPECT_TRUE(host.Schema().Find("T_Thing"));
    ASSERT_FALSE(host.Registrations().empty());
    EXPECT_EQ(host.Registrations().front().className, "T_Thing");
}

}  // namespace
}  // namespace host
