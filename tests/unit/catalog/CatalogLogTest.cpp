// The trace that reading a catalog leaves, line by line.
#include "CatalogFixture.h"

using NQUVZDX20::kLogFatal;
using NQUVZDX20::kLogFinest;
using NQUVZDX20::kLogTrace;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

namespace {

constexpr char kPrefix[] = "BMCI2C Parser Line 1:";

LogLine Trace(const std::string& text) { return {kLogTrace, kPrefix + text}; }
LogLine Finest(const std::string& text) { return {kLogFinest, kPrefix + text}; }

class CatalogLog : public CatalogFixture {
protected:
    // The lines from the first of the given elements to the last.
    std::vector<LogLine> LinesOf(const std::string& elements) {
        ParseCatalog(elements);
        const std::vector<LogLine> lines = FakeDiagnostics::Lines();
        return {lines.begin() + 2, lines.end() - 3};
    }
};

}  // namespace

TEST_F(CatalogLog, EmptyCatalog_TracesItsTwoTags) {
    Parse("<bmci2cmsg version='1.0'/>");
    EXPECT_THAT(FakeDiagnostics::Lines(),
                ElementsAre(Finest("++ ELEMENT: bmci2cmsg"), Finest("    version:1.0"),
                            Finest("-- ELEMENT: bmci2cmsg"), Trace("bmci2cmsg")));
}

TEST_F(CatalogLog, MachineWithAMessage_IsTracedInOrder) {
    EXPECT_THAT(
        LinesOf("<Machine type='a'><property name='message' index='1'>"
                "<value>text</value></property></Machine>"),
        ElementsAre(Finest("++ ELEMENT: Machine"), Finest("    type:a"), Trace("before sharedptr"),
                    Trace("after sharedptr"), Finest("++ ELEMENT: property"), Finest("    index:1"),
                    Finest("    name:message"), Finest("++ ELEMENT: value"),
                    Finest("--CHARACTER DATA:text"), Trace("Added text"),
                    Finest("-- ELEMENT: value"), Trace("value"), Finest("--CHARACTER DATA:"),
                    Finest("-- ELEMENT: property"), Trace("property"), Finest("--CHARACTER DATA:"),
                    Finest("-- ELEMENT: Machine"), Trace("Machine")));
}

TEST_F(CatalogLog, QualifiedValues_AreTracedWithTheirText) {
    for (const std::string name : {"recommendation", "quvrecommendation", "oemrecommendation"}) {
        MakeParser(Build::Standard);
        EXPECT_THAT(
            LinesOf("<property name='message' index='1'><qualifier name='" + name +
                    "' type='s'><value.array><value>advice</value></value.array></qualifier>"
                    "</property>"),
            ElementsAre(
                Finest("++ ELEMENT: property"), Finest("    index:1"), Finest("    name:message"),
                Finest("++ ELEMENT: qualifier"), Finest("    name:" + name), Finest("    type:s"),
                Finest("++ ELEMENT: value.array"), Finest("++ ELEMENT: value"),
                Finest("--CHARACTER DATA:advice"), Trace("advice"), Finest("-- ELEMENT: value"),
                Trace("value"), Finest("--CHARACTER DATA:"), Finest("-- ELEMENT: value.array"),
                Trace("value.array"), Finest("--CHARACTER DATA:"), Finest("-- ELEMENT: qualifier"),
                Trace("qualifier"), Finest("--CHARACTER DATA:"), Finest("-- ELEMENT: property"),
                Trace("property")));
    }
}

TEST_F(CatalogLog, ValueUnderQualifierValues_IsNotTracedAsAdded) {
    EXPECT_THAT(LinesOf("<property name='message' index='1'>"
                        "<qualifier name='values' type='s'><value>text</value></qualifier>"
                        "</property>"),
                Not(Contains(Trace("Added text"))));
}

TEST_F(CatalogLog, Equate_TracesItsTagsOnly) {
    EXPECT_THAT(LinesOf("<machinetypeequates realmt='r' xmlmt='x'/>"),
                ElementsAre(Finest("++ ELEMENT: machinetypeequates"), Finest("    realmt:r"),
                            Finest("    xmlmt:x"), Finest("-- ELEMENT: machinetypeequates"),
                            Trace("machinetypeequates")));
}

TEST_F(CatalogLog, RecommendationOfThisBuild_IsTracedAsAdded) {
    EXPECT_THAT(LinesOf("<genrecommendation index='1' value='&amp;lt;v'/>"),
                ElementsAre(Finest("++ ELEMENT: genrecommendation"), Finest("    index:1"),
                            Finest("    value:&lt;v"), Finest("Added reco: <v"),
                            Finest("-- ELEMENT: genrecommendation"), Trace("genrecommendation")));
    MakeParser(Build::Oem);
    EXPECT_THAT(LinesOf("<oemrecommendation index='1' value='&amp;lt;v'/>"),
                ElementsAre(Finest("++ ELEMENT: oemrecommendation"), Finest("    index:1"),
                            Finest("    value:&lt;v"), Finest("Added reco: &lt;v"),
                            Finest("-- ELEMENT: oemrecommendation"), Trace("oemrecommendation")));
}

TEST_F(CatalogLog, RecommendationOfTheOtherBuild_TracesItsTagsAndAttributesOnly) {
    EXPECT_THAT(LinesOf("<oemrecommendation index='1' value='v'/>"),
                ElementsAre(Finest("++ ELEMENT: oemrecommendation"), Finest("    index:1"),
                            Finest("    value:v"), Finest("-- ELEMENT: oemrecommendation"),
                            Trace("oemrecommendation")));
    MakeParser(Build::Oem);
    EXPECT_THAT(LinesOf("<genrecommendation bad='1'/>"),
                ElementsAre(Finest("++ ELEMENT: genrecommendation"), Finest("    bad:1"),
                            Finest("-- ELEMENT: genrecommendation"), Trace("genrecommendation")));
}

TEST_F(CatalogLog, UnknownElement_TracesItsTagsAndItsReports) {
    EXPECT_THAT(
        LinesOf("<Other a='1'/>"),
        ElementsAre(Finest("++ ELEMENT: Other"), Finest("    a:1"),
                    LogLine{kLogFatal, "BMCI2C Parser Line 1:Unrecognized identifier: Other"},
                    Finest("-- ELEMENT: Other"),
                    LogLine{kLogFatal, "BMCI2C Parser Line 1:Unrecognized identifier: Other"}));
}

TEST_F(CatalogLog, DebugOutput_BeforeAnyParse_CarriesLineZero) {
    parser->DebugOutput(NQUVZDX20::kLogError, "text");
    EXPECT_THAT(FakeDiagnostics::Lines(),
                ElementsAre(LogLine{NQUVZDX20::kLogError, "BMCI2C Parser Line 0:text"}));
}

TEST_F(CatalogLog, FatalError_OfEitherKind_IsOneLineOfSeverityZero) {
    parser->FatalError("as characters");
    parser->FatalError(std::string("as a string"));
    EXPECT_THAT(FakeDiagnostics::Lines(),
                ElementsAre(LogLine{kLogFatal, "BMCI2C Parser Line 0:as characters"},
                            LogLine{kLogFatal, "BMCI2C Parser Line 0:as a string"}));
}

TEST_F(CatalogLog, FatalErrorWithoutAMessage_EndsAfterTheColon) {
    const char* const nothing = nullptr;
    parser->FatalError(nothing);
    EXPECT_THAT(FakeDiagnostics::Lines(), ElementsAre(LogLine{kLogFatal, "BMCI2C Parser Line 0:"}));
}

TEST_F(CatalogLog, InstructionsAndNotations_AreNotTraced) {
    Parse("<!DOCTYPE bmci2cmsg [<!NOTATION n SYSTEM 's'>]><?do it?><bmci2cmsg version='1'/>");
    EXPECT_EQ(FakeDiagnostics::Lines().front(), Finest("++ ELEMENT: bmci2cmsg"));
}
