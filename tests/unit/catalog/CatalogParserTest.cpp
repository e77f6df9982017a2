// The parser's operations beside reading one catalog.
#include <stdexcept>

#include "CatalogFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

class CatalogParser : public CatalogFixture {};

}  // namespace

TEST_F(CatalogParser, New_HasNoMachinesAndNoDataCollected) {
    EXPECT_THAT(parser->GetMachineList(), IsEmpty());
    EXPECT_FALSE(parser->IsDataCollected());
    EXPECT_THAT(FakeDiagnostics::Lines(), IsEmpty());
}

TEST_F(CatalogParser, DataCollected_IsWhatTheCallerSetsAndParsingLeavesIt) {
    ParseCatalog("<machine type='a'/>");
    EXPECT_FALSE(parser->IsDataCollected());
    parser->SetDataCollected(true);
    EXPECT_TRUE(parser->IsDataCollected());
}

TEST_F(CatalogParser, MachineList_SharesItsEntriesAndOutlivesTheParser) {
    ParseCatalog("<machine type='a'/>");
    const auto machines = parser->GetMachineList();
    EXPECT_EQ(machines.front(), parser->GetMachineList().front());
    parser.reset();
    EXPECT_EQ(machines.front().use_count(), 1);
    EXPECT_THAT(machines.front()->GetMachineTypes(), ElementsAre("a"));
}

TEST_F(CatalogParser, SecondParse_AddsToTheFirst) {
    ParseCatalog(
        "<machinetypeequates realmt='real' xmlmt='b'/>"
        "<genrecommendation index='1' value='kept'/><machine type='a'/>");
    ParseCatalog(
        "<machine type='b'><property name='message' index='1'><value>text</value>"
        "</property></machine>");
    ASSERT_EQ(MachineCount(), 2U);
    EXPECT_THAT(Machine(1).GetMachineTypes(), ElementsAre("b", "real"));
    EXPECT_THAT(Machine(1).GetMessege().GetRecommendations(1), ElementsAre("kept"));
}

TEST_F(CatalogParser, AddProperties_GivesTheGatheredTextsToTheCurrentMachineOnce) {
    ParseCatalog(
        "<machine type='a'/>"
        "<property name='message' index='1'><value>text</value></property>");
    parser->AddProperties();
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), ElementsAre(Pair(1, "text")));
    parser->AddProperties();
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), IsEmpty());
}

TEST_F(CatalogParser, AddPropertiesWithoutAMachine_ThrowsAndKeepsTheTexts) {
    ParseCatalog("<property name='message' index='1'><value>text</value></property>");
    try {
        parser->AddProperties();
        ADD_FAILURE() << "Nothing was thrown";
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), "No machine was opened that could take the properties: px != 0");
    }
    EXPECT_THROW(parser->EndElement("machine"), std::logic_error);
    EXPECT_THAT(parser->GetMachineList(), IsEmpty());
    ParseCatalog("<machine type='a'/>");
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), ElementsAre(Pair(1, "text")));
}

TEST_F(CatalogParser, HexCast_ReadsHexadecimalDigitsOnly) {
    EXPECT_EQ(parser->HexCast("1F"), 31U);
    EXPECT_EQ(parser->HexCast("10"), 16U);
    EXPECT_EQ(parser->HexCast("ffffffff"), 0xFFFFFFFFU);
    EXPECT_EQ(parser->HexCast("100000000"), 0xFFFFFFFFU);
    EXPECT_EQ(parser->HexCast("7 apples"), 7U);
    EXPECT_EQ(parser->HexCast("zebra"), 0U);
    EXPECT_EQ(parser->HexCast(""), 0U);
}

TEST_F(CatalogParser, SearchVector_FindsTheFirstExactMatch) {
    EXPECT_EQ(parser->SearchVector("b", {"B", "a", "b", "b"}), 2U);
    EXPECT_THAT(FakeDiagnostics::Lines(), IsEmpty());
}

TEST_F(CatalogParser, SearchVectorWithoutAMatch_ReportsAndReturnsTheSize) {
    EXPECT_EQ(parser->SearchVector("c", {"C", "a"}), 2U);
    EXPECT_THAT(Errors(), ElementsAre("BMCI2C Parser Line 0:Unrecognized String: c"));
}

TEST_F(CatalogParser, SearchVectorOnAnEmptyVector_ReportsAndReturnsZero) {
    EXPECT_EQ(parser->SearchVector("c", {}), 0U);
    EXPECT_THAT(Errors(), ElementsAre("BMCI2C Parser Line 0:Unrecognized String: c"));
}

TEST_F(CatalogParser, SearchVector_LooksAtTheFirst256StringsOnly) {
    std::vector<std::string> strings(300, "other");
    strings[255] = "last";
    strings[256] = "beyond";
    EXPECT_EQ(parser->SearchVector("last", strings), 255U);
    EXPECT_THAT(Errors(), IsEmpty());
    EXPECT_EQ(parser->SearchVector("beyond", strings), 300U);
    EXPECT_THAT(Errors(), ElementsAre("BMCI2C Parser Line 0:Unrecognized String: beyond"));
}
