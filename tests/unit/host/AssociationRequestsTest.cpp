#include "HostFixture.h"

namespace host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class AssociationRequestsTest : public HostTest {
protected:
    const ObjectPath one = PathTo("T_Thing", "one");

    static std::vector<std::string> Names(const std::vector<ObjectPath>& paths) {
        std::vector<std::string> names;
        for (const ObjectPath& path : paths) names.push_back(path.ToString());
        return names;
    }

    static std::vector<std::string> Names(const std::vector<Instance>& instances) {
        std::vector<std::string> names;
        for (const Instance& instance : instances) names.push_back(instance.path.ToString());
        return names;
    }

    static std::string Link(const std::string& from, const std::string& to) {
        return "root/test:T_Link.From=\"root/test:" + from + "\",To=\"root/test:" + to + "\"";
    }

    static constexpr const char* kOne = "root/test:T_Thing.Name=\"one\"";
    static constexpr const char* kTwo = "root/test:T_Thing.Name=\"two\"";
    static constexpr const char* kThree = "root/test:T_Widget.Name=\"three\"";
    static constexpr const char* kGone = "root/test:T_Thing.Name=\"gone\"";
    static constexpr const char* kInnerOne = "T_Thing.Name=\\\"one\\\"";
    static constexpr const char* kInnerTwo = "T_Thing.Name=\\\"two\\\"";
};

TEST_F(AssociationRequestsTest, AssociatorNames_OfAClassWithoutInterface_AreDerived) {
    const auto result = host.AssociatorNames(one, "T_Refused", "", "", "");
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    EXPECT_THAT(Names(result.names), ElementsAre(kThree));
}

TEST_F(AssociationRequestsTest, AssociatorNames_BothWays_AreDistinct) {
    const auto result = host.AssociatorNames(PathTo("t_thing", "two"), "T_Link", "", "", "");
    EXPECT_THAT(Names(result.names),
                ElementsAre(kOne, "root/test:T_Thing.Name=\"T_Answered NULL NULL NULL \""));
}

TEST_F(AssociationRequestsTest, AssociatorNames_InARole_FollowOneWay) {
    const auto names = [&](const std::string& role, const std::string& resultRole) {
        return Names(host.AssociatorNames(one, "T_Refused", "", role, resultRole).names);
    };
    EXPECT_THAT(names("from", ""), ElementsAre(kThree));
    EXPECT_THAT(names("To", ""), IsEmpty());
    EXPECT_THAT(names("", "TO"), ElementsAre(kThree));
    EXPECT_THAT(names("", "From"), IsEmpty());
    EXPECT_THAT(names("Middle", ""), IsEmpty());
}

TEST_F(AssociationRequestsTest, AssociatorNames_OfAResultClass_IncludeItsSubclasses) {
    const auto names = [&](const std::string& resultClass) {
        return Names(host.AssociatorNames(one, "T_Refused", resultClass, "", "").names);
    };
    EXPECT_THAT(names("T_Widget"), ElementsAre(kThree));
    EXPECT_THAT(names("t_element"), ElementsAre(kThree));
    EXPECT_THAT(names("T_Numbered"), IsEmpty());
    EXPECT_THAT(names("T_Whole"), IsEmpty());
}

TEST_F(AssociationRequestsTest, ProviderThatAnswers_GetsTheFilters) {
    const auto result = host.AssociatorNames(one, "T_Answered", "T_Thing", "From", "To");
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    EXPECT_THAT(Names(result.names),
                ElementsAre("root/test:T_Thing.Name=\"T_Answered T_Thing From To \""));
}

TEST_F(AssociationRequestsTest, AllAssociationClasses_AreAsked_FailingOnesAreLeftOut) {
    const auto result = host.AssociatorNames(one, "", "", "", "");
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    EXPECT_THAT(
        Names(result.names),
        ElementsAre(kThree, kTwo, kGone, "root/test:T_Thing.Name=\"T_Answered NULL NULL NULL \""));
    const auto messages = Messages();
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages[0].text,
              "The class 'T_Failing' is left out: An end of the link is missing.");
    EXPECT_EQ(messages[1].text,
              "The class 'T_Mute' is left out: The associations of the class 'T_Mute' can be "
              "neither asked for nor enumerated.");
}

TEST_F(AssociationRequestsTest, PropertyList_ChoosesPropertiesOfEndsAndLinks) {
    const std::vector<std::string> list{"caption", "TO"};
    const auto ends = host.Associators(one, "T_Refused", "", "", "", &list);
    ASSERT_EQ(ends.instances.size(), 1U);
    ASSERT_EQ(ends.instances[0].properties.size(), 1U);
    EXPECT_EQ(ends.instances[0].properties[0].name, "Caption");
    const auto links = host.References(one, "T_Refused", "", &list);
    ASSERT_EQ(links.instances.size(), 1U);
    ASSERT_EQ(links.instances[0].properties.size(), 1U);
    EXPECT_EQ(links.instances[0].properties[0].name, "To");
}

TEST_F(AssociationRequestsTest, NamedFailingClass_Fails) {
    EXPECT_THAT(host.AssociatorNames(one, "T_Failing", "", "", "").status,
                IsFailure(CMPI_RC_ERR_FAILED, "An end of the link is missing."));
    EXPECT_THAT(host.Associators(one, "T_Failing", "", "", "").status,
                IsFailure(CMPI_RC_ERR_FAILED, "An end of the link is missing."));
    EXPECT_THAT(host.References(one, "T_Failing", "").status,
                IsFailure(CMPI_RC_ERR_FAILED, "An end of the link is missing."));
    EXPECT_THAT(host.ReferenceNames(one, "T_Failing", "").status,
                IsFailure(CMPI_RC_ERR_FAILED, "An end of the link is missing."));
}

TEST_F(AssociationRequestsTest, AssociationWithNeitherInterface_IsNotSupported) {
    EXPECT_THAT(host.ReferenceNames(PathTo("T_Orphan", "x"), "T_Mute", "").status,
                IsFailure(CMPI_RC_ERR_NOT_SUPPORTED,
                          "The associations of the class 'T_Mute' can be neither asked for nor "
                          "enumerated."));
}

TEST_F(AssociationRequestsTest, SourceThatNoAssociationCanHold_HasNone) {
    const auto result = host.AssociatorNames(PathTo("T_Whole", "five"), "", "", "", "");
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    EXPECT_THAT(result.names, IsEmpty());
}

TEST_F(AssociationRequestsTest, OnlyClassesThatCanHoldTheSource_AreEnumerated) {
    const TestModule module;
    const auto enumerations = [&](const ObjectPath& source, const std::string& association,
                                  const std::string& result, const std::string& role) {
        module.TakeLinkEnumerations();
        host.AssociatorNames(source, association, result, role, "");
        return module.TakeLinkEnumerations();
    };
    EXPECT_EQ(enumerations(PathTo("T_Whole", "five"), "", "", ""), 0);
    EXPECT_EQ(enumerations(one, "", "T_Whole", ""), 0);
    EXPECT_EQ(enumerations(one, "", "", "Middle"), 0);
    EXPECT_EQ(enumerations(one, "T_Refused", "", ""), 1);
    const int all = enumerations(one, "", "", "");
    EXPECT_EQ(all, 3);  // T_Link, T_Refused and T_Failing; T_Answered answers itself
    EXPECT_EQ(enumerations(one, "", "", ""), all);
}

TEST_F(AssociationRequestsTest, LinkThatIsEnumeratedTwice_IsDeliveredOnce) {
    const auto links = host.EnumerateInstanceNames(PathTo("T_Link")).names;
    EXPECT_EQ(Names(links)[0], Names(links)[1]);
    const auto references = host.ReferenceNames(one, "T_Link", "From").names;
    EXPECT_THAT(Names(references), testing::Contains(Names(links)[0]).Times(1));
    EXPECT_THAT(Names(host.References(one, "T_Link", "From").instances),
                testing::Contains(Names(links)[0]).Times(1));
    EXPECT_THAT(Names(host.Associators(one, "T_Link", "", "From", "").instances),
                testing::Contains(kThree).Times(1));
}

TEST_F(AssociationRequestsTest, SourceKeysInAnyCase_Match) {
    const ObjectPath source{"ROOT/test", "T_THING", {{"nAME", {CMPI_string, std::string("one")}}}};
    EXPECT_THAT(Names(host.AssociatorNames(source, "T_Refused", "", "", "").names),
                ElementsAre("ROOT/test:T_Widget.Name=\"three\""));
    const ObjectPath other = PathTo("T_Thing", "ONE");
    EXPECT_THAT(host.AssociatorNames(other, "T_Refused", "", "", "").names, IsEmpty());
}

TEST_F(AssociationRequestsTest, Associators_AreFoundByEnumeratingTheirClass) {
    const auto result = host.Associators(one, "T_Refused", "", "", "");
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    ASSERT_THAT(Names(result.instances), ElementsAre(kThree));
    EXPECT_EQ(std::get<std::string>(FindValue(result.instances[0].properties, "Caption")->data),
              "third");
}

TEST_F(AssociationRequestsTest, Associators_ThatDoNotExist_AreLeftOut) {
    const auto result = host.Associators(one, "T_Link", "T_Thing", "From", "To");
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    EXPECT_THAT(Names(result.instances),
                UnorderedElementsAre(kThree, kTwo, "root/test:T_Thing.Name=\"answer\""));
}

TEST_F(AssociationRequestsTest, References_AreDerived) {
    const auto result = host.References(PathTo("T_Thing", "two"), "T_Link", "to");
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    ASSERT_EQ(result.instances.size(), 2U);
    EXPECT_EQ(result.instances[0].path.ToString(), Link(kInnerOne, kInnerTwo));
    EXPECT_EQ(result.instances[1].path.className, "T_Answered");
}

TEST_F(AssociationRequestsTest, ReferenceNames_AreDerived) {
    const auto result = host.ReferenceNames(PathTo("T_Thing", "two"), "T_Link", "From");
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    EXPECT_THAT(Names(result.names),
                ElementsAre(Link(kInnerTwo, kInnerOne),
                            "root/test:T_Thing.Name=\"T_Answered From NULL NULL \""));
}

TEST_F(AssociationRequestsTest, UnknownFilterClass_IsAnInvalidParameter) {
    EXPECT_THAT(host.Associators(one, "T_Nothing", "", "", "").status,
                IsFailure(CMPI_RC_ERR_INVALID_PARAMETER,
                          "The association class 'T_Nothing' does not exist."));
    EXPECT_THAT(
        host.Associators(one, "", "T_Nothing", "", "").status,
        IsFailure(CMPI_RC_ERR_INVALID_PARAMETER, "The result class 'T_Nothing' does not exist."));
}

TEST_F(AssociationRequestsTest, UnknownSource_IsAnswered) {
    EXPECT_THAT(host.References(PathTo("T_Nothing"), "", "").status,
                IsFailure(CMPI_RC_ERR_INVALID_CLASS,
                          "There is no class 'T_Nothing' in the namespace 'root/test'."));
    EXPECT_THAT(host.ReferenceNames({"root/none", "T_Thing", {}}, "", "").status,
                IsFailure(CMPI_RC_ERR_INVALID_NAMESPACE, "Unknown namespace 'root/none'."));
}

}  // namespace
}  // namespace host
