// The reports about catalogs that are well-formed XML but break the catalog's rules.
#include "CatalogFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CatalogReport : public CatalogFixture {
protected:
    // The reports about a catalog of these elements, all in line 1, without their prefix.
    std::vector<std::string> ReportsOn(const std::string& elements) {
        ParseCatalog(elements);
        std::vector<std::string> reports;
        for (const std::string& line : Errors()) {
            constexpr std::string_view linePrefix = "BMCI2C Parser Line 1:";
            EXPECT_TRUE(line.starts_with(linePrefix)) << line;
            reports.push_back(line.substr(linePrefix.size()));
        }
        return reports;
    }
};

}  // namespace

TEST_F(CatalogReport, EveryElementInOrder_IsReportedOnItsOwnLine) {
    Parse("<bmci2cmsg>\n<MACHINE>\n<property/>\n</MACHINE>\n</bmci2cmsg>\n");
    EXPECT_THAT(Errors(),
                ElementsAre("BMCI2C Parser Line 1:No Version Specified for bmci2cmsg identifier",
                            "BMCI2C Parser Line 2:No Type Specified for MACHINE identifier",
                            "BMCI2C Parser Line 3:No Name Specified for property identifier",
                            "BMCI2C Parser Line 3:No Type Specified for property identifier"));
}

TEST_F(CatalogReport, UnknownElement_IsReportedAtBothTagsAsWritten) {
    EXPECT_THAT(
        ReportsOn("<Machines><value/></Machines>"),
        ElementsAre("Unrecognized identifier: Machines", "Unrecognized identifier: Machines"));
}

TEST_F(CatalogReport, UnknownRootAttribute_IsIgnored) {
    Parse("<bmci2cmsg version='1' language='en'/>");
    EXPECT_THAT(Errors(), IsEmpty());
}

TEST_F(CatalogReport, UnknownAttribute_IsReportedOnEveryOtherElement) {
    EXPECT_THAT(ReportsOn("<machinetypeequates realmt='r' xmlmt='x' a1=''/>"
                          "<genrecommendation index='1' value='v' a2=''/>"
                          "<machine type='a' a3=''>"
                          "<property name='message' index='1' a4=''>"
                          "<qualifier name='values' type='s' a5=''>"
                          "<value.array a6='' a7=''><value a8='' Name=''/></value.array>"
                          "</qualifier></property></machine>"),
                ElementsAre("Unrecognized Attribute:a1", "Unrecognized Attribute:a2",
                            "Unrecognized Attribute:a3", "Unrecognized Attribute:a4",
                            "Unrecognized Attribute:a5", "Unrecognized Attribute:a6",
                            "Unrecognized Attribute:a7", "Unrecognized Attribute:Name",
                            "Unrecognized Attribute:a8"));
    EXPECT_EQ(MachineCount(), 1U);
}

TEST_F(CatalogReport, UnknownAttributeOfAnOemRecommendation_IsReportedInAnOemBuild) {
    MakeParser(Build::Oem);
    EXPECT_THAT(ReportsOn("<oemrecommendation index='1' value='v' a=''/>"),
                ElementsAre("Unrecognized Attribute:a"));
}

TEST_F(CatalogReport, UnknownPropertyName_IsReportedAsWrittenAmongItsAttributesInOrder) {
    EXPECT_THAT(ReportsOn("<property zz='' name='Text' index='1' aa=''/>"),
                ElementsAre("Unrecognized Attribute:aa", "Unrecognized Name:Text",
                            "Unrecognized Attribute:zz"));
}

TEST_F(CatalogReport, PropertyWithEitherIndexOrType_IsNotReported) {
    EXPECT_THAT(ReportsOn("<property name='message' type='string'/>"), IsEmpty());
    MakeParser(Build::Standard);
    EXPECT_THAT(ReportsOn("<property name='message' index='1'/>"), IsEmpty());
}

TEST_F(CatalogReport, QualifierWithoutNameAndType_IsReportedForBoth) {
    EXPECT_THAT(ReportsOn("<qualifier/>"),
                ElementsAre("No Name Specified for qualifier identifier",
                            "No Type Specified for qualifier identifier"));
}

TEST_F(CatalogReport, SecondQualifierWithoutNameAndType_InheritsTheTypeOnly) {
    EXPECT_THAT(ReportsOn("<qualifier name='values' type='s'/><qualifier/>"),
                ElementsAre("No Name Specified for qualifier identifier"));
}

TEST_F(CatalogReport, EquateWithoutAttributes_MissesIndexAndValueAndIsStored) {
    EXPECT_THAT(ReportsOn("<machinetypeequates/><machine/>"),
                ElementsAre("No Index Specified for machinetypeequates identifier",
                            "No Value Specified for machinetypeequates identifier",
                            "No Type Specified for machine identifier"));
    EXPECT_THAT(Machine().GetMachineTypes(), ElementsAre("", ""));
}

TEST_F(CatalogReport, FirstMachineWithoutType_IsReportedAndListedWithAnEmptyType) {
    EXPECT_THAT(ReportsOn("<machine/>"), ElementsAre("No Type Specified for machine identifier"));
    EXPECT_THAT(Machine().GetMachineTypes(), ElementsAre(""));
}

TEST_F(CatalogReport, RecommendationWithoutAttributes_MissesIndexAndValue) {
    EXPECT_THAT(ReportsOn("<genrecommendation/>"),
                ElementsAre("No Index Specified for genrecommendation identifier",
                            "No Value Specified for genrecommendation identifier"));
    MakeParser(Build::Oem);
    EXPECT_THAT(ReportsOn("<oemrecommendation/>"),
                ElementsAre("No Index Specified for oemrecommendation identifier",
                            "No Value Specified for oemrecommendation identifier"));
}

TEST_F(CatalogReport, RecommendationOfTheOtherBuild_IsSkippedWhateverItsAttributes) {
    EXPECT_THAT(ReportsOn("<oemrecommendation bad='1'/>"), IsEmpty());
    MakeParser(Build::Oem);
    EXPECT_THAT(ReportsOn("<genrecommendation bad='1'/>"), IsEmpty());
}
