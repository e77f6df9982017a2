#include <gtest/gtest.h>
#include <mof/Model.h>
#include <mof/Names.h>
#include <mof/Reader.h>

namespace {

constexpr const char* kModelText = R"(
[Abstract] class Base { string Caption; [Key] string Name; uint32 Start(); uint32 Stop(); };
class Middle : base { uint8 Level; [Override("Name")] string Name; uint32 STOP(boolean Force); };
class Leaf : Middle { string Color; };
[Association] class Link { [Key] Base REF From; [Key] Base REF To; };
class NarrowLink : Link { [Override("To")] Leaf REF to; };
)";

class Model : public testing::Test {
protected:
    const mof::Class& Get(const std::string& name) const { return *schema.Find(name); }

    mof::Schema schema = mof::ReadText(kModelText, "model.mof");
};

template <class Member>
std::string Describe(const std::vector<mof::Inherited<Member>>& members) {
    std::string text;
    for (const auto& [member, origin, declarer] : members) {
        text += member->name + " of " + origin->name + " by " + declarer->name + "; ";
    }
    return text;
}

TEST_F(Model, Find_InAnyLetterCase_GivesTheClass) {
    ASSERT_NE(schema.Find("mIDDLE"), nullptr);
    EXPECT_EQ(schema.Find("mIDDLE")->name, "Middle");
    EXPECT_EQ(schema.Find("Middl"), nullptr);
    EXPECT_EQ(schema.Find(""), nullptr);
}

TEST_F(Model, AllProperties_StandAtTheirFirstDeclaration_DescribedByTheNearest) {
    EXPECT_EQ(Describe(mof::AllProperties(schema, Get("Leaf"))),
              "Caption of Base by Base; Name of Base by Middle; Level of Middle by Middle; "
              "Color of Leaf by Leaf; ");
    EXPECT_EQ(Describe(mof::AllProperties(schema, Get("NarrowLink"))),
              "From of Link by Link; to of Link by NarrowLink; ");
}

TEST_F(Model, AllMethods_StandAtTheirFirstDeclaration_DescribedByTheNearest) {
    EXPECT_EQ(Describe(mof::AllMethods(schema, Get("Leaf"))),
              "Start of Base by Base; STOP of Base by Middle; ");
    EXPECT_EQ(mof::AllMethods(schema, Get("Leaf"))[1].member->parameters.size(), 1U);
}

TEST_F(Model, IsKey_OfAnOverridingPropertyWithoutTheQualifier_IsInherited) {
    EXPECT_TRUE(mof::IsKey(schema, Get("Leaf"), "name"));
    EXPECT_TRUE(mof::IsKey(schema, Get("NarrowLink"), "To"));
    EXPECT_FALSE(mof::IsKey(schema, Get("Leaf"), "Caption"));
    EXPECT_FALSE(mof::IsKey(schema, Get("Leaf"), "Missing"));
}

TEST_F(Model, IsAssociation_HoldsForSubclasses) {
    EXPECT_TRUE(mof::IsAssociation(schema, Get("Link")));
    EXPECT_TRUE(mof::IsAssociation(schema, Get("NarrowLink")));
    EXPECT_FALSE(mof::IsAssociation(schema, Get("Leaf")));
}

TEST_F(Model, IsSubclass_HoldsForTheClassItselfAndItsDescendants) {
    EXPECT_TRUE(mof::IsSubclass(schema, "LEAF", "leaf"));
    EXPECT_TRUE(mof::IsSubclass(schema, "Base", "Leaf"));
    EXPECT_FALSE(mof::IsSubclass(schema, "Leaf", "Base"));
    EXPECT_FALSE(mof::IsSubclass(schema, "Base", "Missing"));
    EXPECT_FALSE(mof::IsSubclass(schema, "Missing", "Missing"));
}

TEST(Qualifiers, HasFlag_IsTrueForTrueAndForNoValue) {
    const auto schema = mof::ReadText(
        "[Bare, Set(true), Unset(false), Text(\"true\"), List {true}] class A { };", "a.mof");
    const auto& qualifiers = schema.classes[0].qualifiers;
    EXPECT_TRUE(mof::HasFlag(qualifiers, "BARE"));
    EXPECT_TRUE(mof::HasFlag(qualifiers, "Set"));
    EXPECT_FALSE(mof::HasFlag(qualifiers, "Unset"));
    EXPECT_FALSE(mof::HasFlag(qualifiers, "Text"));
    EXPECT_FALSE(mof::HasFlag(qualifiers, "List"));
    EXPECT_FALSE(mof::HasFlag(qualifiers, "Missing"));
}

TEST(Qualifiers, FindQualifier_InAnyLetterCase_GivesTheQualifier) {
    const auto schema = mof::ReadText("[Version(\"1\")] class A { };", "a.mof");
    const auto* version = mof::FindQualifier(schema.classes[0].qualifiers, "VERSION");
    ASSERT_NE(version, nullptr);
    EXPECT_EQ(version->value, mof::Literal("1"));
    EXPECT_EQ(mof::FindQualifier(schema.classes[0].qualifiers, "Key"), nullptr);
}

TEST(Parameters, Direction_FollowsTheQualifiers_AndIsInWithoutAny) {
    const auto schema = mof::ReadText(
        "class A { uint32 M(string A, [In] string B, [Out] string C, [In(false), Out] string D,"
        " [In, Out] string E); };",
        "a.mof");
    std::string directions;
    for (const auto& parameter : schema.classes[0].methods[0].parameters) {
        directions += parameter.name + (mof::IsIn(parameter) ? " in" : "") +
                      (mof::IsOut(parameter) ? " out" : "") + "; ";
    }
    EXPECT_EQ(directions, "A in; B in; C in out; D out; E in out; ");
}

TEST(Names, AreComparedWithoutRegardToCase) {
    EXPECT_TRUE(mof::SameName("CIM_Job", "cim_JOB"));
    EXPECT_FALSE(mof::SameName("CIM_Job", "CIM_Jobs"));
    EXPECT_FALSE(mof::SameName("CIM_Jo[", "CIM_Jo{"));
    EXPECT_EQ(mof::FoldedName("CIM_Job[1]"), "cim_job[1]");
}

}  // namespace
