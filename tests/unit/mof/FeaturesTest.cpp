#include <gtest/gtest.h>
#include <mof/DataTypes.h>
#include <mof/Reader.h>
#include <mof/generator/Features.h>

namespace {

constexpr const char* kFeaturesText = R"(
class Job { [Key] string InstanceID; };
class FastJob : JOB { };
class Link { [Key] Job REF Target; string Note; };
class FastLink : Link { [Override("Target")] fastjob REF TARGET; uint8 Rank; uint32 Run(JOB REF J); };
)";

std::string Describe(const std::vector<mof::Feature>& features) {
    std::string text;
    for (const auto& feature : features) {
        text += feature.name + " " + mof::ToText(feature.type) + (feature.isKey ? " key" : "") +
                (feature.isIn ? " in" : "") + (feature.isOut ? " out" : "") + "; ";
    }
    return text;
}

TEST(Features, OfASubclass_KeepTheMembersNames_AndTakeTheNarrowerReference) {
    const auto schema = mof::ReadText(kFeaturesText, "a.mof");
    EXPECT_EQ(Describe(mof::FeaturesOf(schema, schema.classes[3])),
              "Target FastJob REF key; Note string; Rank uint8; ");
}

TEST(Features, OwnOnes_AreThoseThatNoSuperclassHas) {
    const auto schema = mof::ReadText(kFeaturesText, "a.mof");
    EXPECT_EQ(Describe(mof::OwnFeatures(schema, schema.classes[3])), "Rank uint8; ");
    EXPECT_EQ(Describe(mof::OwnFeatures(schema, schema.classes[2])),
              "Target Job REF key; Note string; ");
}

TEST(Features, OfAMethod_AreItsParametersAndTheReturnValue) {
    const auto schema = mof::ReadText(kFeaturesText, "a.mof");
    EXPECT_EQ(Describe(mof::FeaturesOf(schema, schema.classes[3].methods[0])),
              "J Job REF in; return_value uint32 out; ");
}

TEST(Features, ArrayOfReferencesAsParameter_IsAnError) {
    const auto schema = mof::ReadText("class A { uint32 M(A REF All[]); };", "a.mof");
    try {
        mof::FeaturesOf(schema, schema.classes[0].methods[0]);
        FAIL() << "no error";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(),
                     "Parameter 'All' of method 'M' is an array of references, which a generated "
                     "class cannot hold.");
    }
}

}  // namespace
