// What a well-formed catalog means.
#include "CatalogFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

class CatalogFormat : public CatalogFixture {};

}  // namespace

TEST_F(CatalogFormat, TwoMachines_HaveTheirTypesTextsAndRecommendations) {
    Parse(R"(<?xml version="1.0" encoding="UTF-8"?>
<bmci2cmsg version="1.0">
  <machinetypeequates realmt="7001" xmlmt="7000"/>
  <machine type="7000">
    <property name="message" index="1">
      <value.array>
        <value>a message text</value>
      </value.array>
    </property>
    <property name="message" index="2">
      <qualifier name="recommendation" type="string">
        <value.array>
          <value>a recommendation text</value>
        </value.array>
      </qualifier>
    </property>
  </machine>
  <machine type="7100"/>
</bmci2cmsg>
)");
    ASSERT_EQ(MachineCount(), 2U);
    EXPECT_THAT(Machine(0).GetMachineTypes(), ElementsAre("7000", "7001"));
    EXPECT_THAT(Machine(0).GetMessege().GetValueMap(), ElementsAre(Pair(1, "a message text")));
    EXPECT_THAT(Machine(0).GetMessege().GetAllRecommendations(),
                ElementsAre(Pair(2, "a recommendation text")));
    EXPECT_THAT(Machine(1).GetMachineTypes(), ElementsAre("7100"));
    EXPECT_THAT(Machine(1).GetMessege().GetValueMap(), IsEmpty());
    EXPECT_THAT(Errors(), IsEmpty());
}

TEST_F(CatalogFormat, NamesInCapitals_AreReadLikeSmallOnes) {
    Parse(
        "<BMCI2CMSG version='1'><Machine type='Alpha'><PROPERTY name='MESSAGE' index='1'>"
        "<VALUE.ARRAY><Value>Text</Value></VALUE.ARRAY>"
        "<Qualifier name='QuvRecommendation' type='string'><VALUE>Advice</VALUE></Qualifier>"
        "</PROPERTY></Machine></BMCI2CMSG>");
    EXPECT_THAT(Errors(), IsEmpty());
    EXPECT_THAT(Machine().GetMachineTypes(), ElementsAre("Alpha"));
    EXPECT_EQ(Machine().GetMessege().GetValueFromMap(1), "Text");
    EXPECT_THAT(Machine().GetMessege().GetRecommendations(1), ElementsAre("Advice"));
}

TEST_F(CatalogFormat, EquatesBeforeAMachine_AddTheirRealTypesInAscendingOrder) {
    ParseCatalog(
        "<machinetypeequates realmt='gamma' xmlmt='alpha'/>"
        "<machinetypeequates realmt='other' xmlmt='omega'/>"
        "<machinetypeequates realmt='beta' xmlmt='alpha'/>"
        "<machine type='alpha'/>");
    EXPECT_THAT(Machine().GetMachineTypes(), ElementsAre("alpha", "beta", "gamma"));
}

TEST_F(CatalogFormat, MachineBeforeAnyEquate_HasItsOwnTypeOnly) {
    ParseCatalog(
        "<machine type='alpha'><machinetypeequates realmt='beta' xmlmt='alpha'/></machine>"
        "<machine type='alpha'/>");
    EXPECT_THAT(Machine(0).GetMachineTypes(), ElementsAre("alpha"));
    EXPECT_THAT(Machine(1).GetMachineTypes(), ElementsAre("alpha", "beta"));
}

TEST_F(CatalogFormat, SecondEquateOfARealType_IsIgnored) {
    ParseCatalog(
        "<machinetypeequates realmt='real' xmlmt='alpha'/>"
        "<machinetypeequates realmt='real' xmlmt='beta'/>"
        "<machine type='alpha'/><machine type='beta'/>");
    EXPECT_THAT(Machine(0).GetMachineTypes(), ElementsAre("alpha", "real"));
    EXPECT_THAT(Machine(1).GetMachineTypes(), ElementsAre("beta"));
}

TEST_F(CatalogFormat, TextsBetweenTwoMachines_GoToTheSecond) {
    ParseCatalog(
        "<property name='message' index='1'><value>before</value></property>"
        "<machine type='a'/>"
        "<property name='message' index='2'><value>between</value></property>"
        "<machine type='b'/>"
        "<property name='message' index='3'><value>behind</value></property>");
    ASSERT_EQ(MachineCount(), 2U);
    EXPECT_THAT(Machine(0).GetMessege().GetValueMap(), ElementsAre(Pair(1, "before")));
    EXPECT_THAT(Machine(1).GetMessege().GetValueMap(), ElementsAre(Pair(2, "between")));
}

TEST_F(CatalogFormat, SecondTextOfANumber_IsIgnored) {
    ParseCatalog(
        "<machine type='a'><property name='message' index='1'>"
        "<value>first</value><value>second</value></property></machine>");
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), ElementsAre(Pair(1, "first")));
}

TEST_F(CatalogFormat, ValueUnderAnUnlistedQualifier_IsAMessageText) {
    ParseCatalog(
        "<machine type='a'><property name='message' index='1'>"
        "<qualifier name='comment' type='string'><value>text</value></qualifier>"
        "</property></machine>");
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), ElementsAre(Pair(1, "text")));
}

TEST_F(CatalogFormat, ValueUnderQualifierValues_LeavesNoTrace) {
    ParseCatalog(
        "<machine type='a'><property name='message' index='1'>"
        "<qualifier name='values' type='string'><value>text</value></qualifier>"
        "</property></machine>");
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), IsEmpty());
    EXPECT_THAT(Machine().GetMessege().GetAllRecommendations(), IsEmpty());
}

TEST_F(CatalogFormat, QualifierName_IsForgottenAtItsEndTag) {
    ParseCatalog(
        "<machine type='a'><property name='message' index='1'>"
        "<qualifier name='values' type='string'/><value>text</value>"
        "</property></machine>");
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), ElementsAre(Pair(1, "text")));
}

TEST_F(CatalogFormat, PropertyMachineType_IsAcceptedAndItsValuesIgnored) {
    ParseCatalog(
        "<machine type='a'><property name='machine_type' type='string'>"
        "<value>7000</value>"
        "<qualifier name='recommendation' type='s'><value>advice</value></qualifier>"
        "</property></machine>");
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), IsEmpty());
    EXPECT_THAT(Machine().GetMessege().GetAllRecommendations(), IsEmpty());
    EXPECT_THAT(Errors(), IsEmpty());
}

TEST_F(CatalogFormat, TextOutsideValues_IsIgnored) {
    ParseCatalog(
        "loose<machine type='a'>loose<property name='message' index='1'>loose"
        "<value.array>loose</value.array></property></machine>");
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), IsEmpty());
}

TEST_F(CatalogFormat, EmptyValue_StoresNoText) {
    ParseCatalog(
        "<machine type='a'><property name='message' index='1'><value></value><value/>"
        "</property></machine>");
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), IsEmpty());
}

TEST_F(CatalogFormat, Text_KeepsItsWhiteSpaceAndCommentsDoNotSplitIt) {
    ParseCatalog(
        "<machine type='a'><property name='message' index='1'>"
        "<value> one <!-- note -->&lt;two&gt; </value></property></machine>");
    EXPECT_EQ(Machine().GetMessege().GetValueFromMap(1), " one <two> ");
}

TEST_F(CatalogFormat, PropertyWithoutIndex_InheritsThatOfTheLastProperty) {
    ParseCatalog(
        "<machine type='a'><property name='message' index='5'><value>five</value>"
        "</property><property name='message' type='string'>"
        "<qualifier name='quvrecommendation' type='string'><value>advice</value>"
        "</qualifier></property></machine>");
    EXPECT_THAT(Machine().GetMessege().GetRecommendations(5), ElementsAre("advice"));
}

TEST_F(CatalogFormat, PropertyWithoutName_InheritsThatOfTheLastProperty) {
    ParseCatalog(
        "<machine type='a'><property name='message' index='5'><value>five</value>"
        "</property><property index='6'><value>six</value></property></machine>");
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), ElementsAre(Pair(5, "five"), Pair(6, "six")));
    EXPECT_THAT(Errors(), IsEmpty());
}

TEST_F(CatalogFormat, MachineWithoutType_InheritsThatOfTheLastMachine) {
    ParseCatalog("<machinetypeequates realmt='real' xmlmt='a'/><machine type='a'/><machine/>");
    EXPECT_THAT(Machine(1).GetMachineTypes(), ElementsAre("a", "real"));
    EXPECT_THAT(Errors(), IsEmpty());
}

TEST_F(CatalogFormat, EquateWithoutCatalogType_InheritsThatOfTheLastEquate) {
    ParseCatalog(
        "<machinetypeequates realmt='b' xmlmt='a'/><machinetypeequates realmt='c'/>"
        "<machine type='a'/>");
    EXPECT_THAT(Machine().GetMachineTypes(), ElementsAre("a", "b", "c"));
    EXPECT_THAT(Errors(), IsEmpty());
}

TEST_F(CatalogFormat, Index65537_KeepsTheTextUnder1AndRecommendationsUnder65537) {
    ParseCatalog(
        "<genrecommendation index='1' value='general'/>"
        "<machine type='a'><property name='message' index='65537'><value>text</value>"
        "<qualifier name='recommendation' type='s'><value>advice</value></qualifier>"
        "</property></machine>");
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), ElementsAre(Pair(1, "text")));
    EXPECT_THAT(Machine().GetMessege().GetAllRecommendations(),
                ElementsAre(Pair(65537, "general"), Pair(65537, "advice")));
}

TEST_F(CatalogFormat, SignedIndex_IsReadAsBoostReadsIt) {
    ParseCatalog(
        "<machine type='a'><property name='message' index='+5'><value>five</value>"
        "</property><property name='message' index='-1'><value>last</value>"
        "<qualifier name='recommendation' type='s'><value>advice</value></qualifier>"
        "</property></machine>");
    EXPECT_THAT(Machine().GetMessege().GetValueMap(),
                ElementsAre(Pair(5, "five"), Pair(65535, "last")));
    EXPECT_THAT(Machine().GetMessege().GetAllRecommendations(),
                ElementsAre(Pair(4294967295U, "advice")));
}

TEST_F(CatalogFormat, MachineWithinAMachine_IsListedAtBothEndTags) {
    ParseCatalog("<machine type='a'><machine type='b'></machine></machine>");
    ASSERT_EQ(MachineCount(), 2U);
    EXPECT_EQ(parser->GetMachineList().front(), parser->GetMachineList().back());
    EXPECT_THAT(Machine().GetMachineTypes(), ElementsAre("b"));
}
