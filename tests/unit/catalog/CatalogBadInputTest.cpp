// Catalogs that cannot be read to their end: what was read stays.
#include <boost/lexical_cast.hpp>
#include <typeinfo>

#include "CatalogFixture.h"
#include "GroupingLocale.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

class CatalogBadInput : public CatalogFixture {
protected:
    static std::string NotWellFormed(int line, int column, const std::string& reason) {
        return "BMCI2C Parser Line " + std::to_string(line) + ":Not well-formed XML at column " +
               std::to_string(column) + ": " + reason + ". Nothing from here on is read.";
    }
};

// Two machines; the second's message text and index can be chosen.
std::string TwoMachines(const std::string& index) {
    return "<bmci2cmsg version='1.0'>\n"
           "<machine type='a'><property name='message' index='1'><value>one</value></property>"
           "</machine>\n"
           "<machine type='b'><property name='message' index='" +
           index + "'><value>two</value></property></machine>\n</bmci2cmsg>\n";
}

}  // namespace

TEST_F(CatalogBadInput, EmptyFile_IsOneReport) {
    Parse("");
    EXPECT_THAT(Errors(), ElementsAre(NotWellFormed(1, 1, "the text is empty or ends too early")));
    EXPECT_THAT(parser->GetMachineList(), IsEmpty());
}

TEST_F(CatalogBadInput, NotXml_IsOneReport) {
    Parse("[machine]\ntype = 7000\n");
    EXPECT_THAT(Errors(), ElementsAre(NotWellFormed(1, 1, "syntax error")));
    EXPECT_THAT(parser->GetMachineList(), IsEmpty());
}

TEST_F(CatalogBadInput, TruncatedInAText_KeepsTheMachinesBeforeAndReportsOnce) {
    const std::string catalog = TwoMachines("2");
    Parse(catalog.substr(0, catalog.find("two") + 2));
    EXPECT_THAT(Errors(), ElementsAre(NotWellFormed(3, 63, "the text is empty or ends too early")));
    ASSERT_EQ(MachineCount(), 1U);
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), ElementsAre(Pair(1, "one")));
    EXPECT_THAT(FakeDiagnostics::Texts(NQUVZDX20::kLogFinest).back(),
                "BMCI2C Parser Line 3:++ ELEMENT: value");
}

TEST_F(CatalogBadInput, TruncatedAnywhere_NeverThrowsAndReportsOnce) {
    const std::string catalog = TwoMachines("2");
    const std::size_t end = catalog.find("</bmci2cmsg>") + std::string("</bmci2cmsg>").size();
    for (std::size_t length = 0; length < end; ++length) {
        MakeParser(Build::Standard);
        ASSERT_NO_THROW(Parse(catalog.substr(0, length)));
        ASSERT_EQ(Errors().size(), 1U) << length;
    }
}

TEST_F(CatalogBadInput, MismatchedTag_IsReportedWithItsLine) {
    Parse("<bmci2cmsg version='1.0'>\n<machine type='a'/>\n<machine type='b'>\n</bmci2cmsg>\n");
    EXPECT_THAT(Errors(), ElementsAre(NotWellFormed(4, 3, "mismatched tag")));
    EXPECT_EQ(MachineCount(), 1U);
}

TEST_F(CatalogBadInput, EndOfAMachineThatNeverBegan_IsASyntaxErrorAndReachesNoMachine) {
    Parse("<bmci2cmsg version='1.0'>\n</machine>\n</bmci2cmsg>\n");
    EXPECT_THAT(Errors(), ElementsAre(NotWellFormed(2, 3, "mismatched tag")));
    EXPECT_THAT(parser->GetMachineList(), IsEmpty());
}

TEST_F(CatalogBadInput, AnotherEncoding_IsReportedByName) {
    Parse("<?xml version='1.0' encoding='windows-1252'?>\n<bmci2cmsg version='1.0'/>\n");
    EXPECT_THAT(Errors(), ElementsAre(NotWellFormed(
                              1, 31,
                              "the encoding windows-1252 is not supported (use UTF-8, UTF-16, "
                              "ISO-8859-1 or US-ASCII)")));
}

TEST_F(CatalogBadInput, Latin1Catalog_GivesUtf8Texts) {
    Parse(
        "<?xml version='1.0' encoding='ISO-8859-1'?><bmci2cmsg version='1'><machine type='a'>"
        "<property name='message' index='1'><value>gest\xF6rt</value></property></machine>"
        "</bmci2cmsg>");
    EXPECT_EQ(Machine().GetMessege().GetValueFromMap(1), "gest\xC3\xB6rt");
    EXPECT_THAT(Errors(), IsEmpty());
}

TEST_F(CatalogBadInput, IndexThatIsNoDecimalNumber_LeavesTheParseAndKeepsTheMachinesBefore) {
    for (const char* const index : {"0x10", "ten", "1 ", "4294967296", "1.0"}) {
        MakeParser(Build::Standard);
        try {
            Parse(TwoMachines(index));
            ADD_FAILURE() << "Nothing was thrown for " << index;
        } catch (const std::bad_cast& error) {
            EXPECT_STREQ(error.what(),
                         "bad lexical cast: source type value could not be interpreted as target");
        }
        EXPECT_EQ(MachineCount(), 1U);
        EXPECT_EQ(parser->GetCurLine(), 3);
        EXPECT_THAT(Errors(), IsEmpty());
    }
}

TEST_F(CatalogBadInput, LocaleThatGroupsDigits_MakesNoIndexOfThem) {
    const GroupingLocale locale;
    EXPECT_THROW(Parse(TwoMachines("1.109")), boost::bad_lexical_cast);
    MakeParser(Build::Standard);
    Parse(TwoMachines("1109"));
    EXPECT_THAT(Machine(1).GetMessege().GetValueMap(), ElementsAre(Pair(1109, "two")));
}

TEST_F(CatalogBadInput, MessageWithoutAnyIndex_LeavesTheParse) {
    EXPECT_THROW(ParseCatalog("<machine type='a'><property name='message' type='s'>"
                              "<value>text</value></property></machine>"),
                 boost::bad_lexical_cast);
}

TEST_F(CatalogBadInput, BadIndexOfARecommendation_LeavesTheParse) {
    for (const char* const kind : {"recommendation", "quvrecommendation"}) {
        MakeParser(Build::Standard);
        EXPECT_THROW(ParseCatalog("<machine type='a'><property name='message' index='x'>"
                                  "<qualifier name='" +
                                  std::string(kind) +
                                  "' type='s'><value>advice</value></qualifier>"
                                  "</property></machine>"),
                     boost::bad_lexical_cast);
    }
}

TEST_F(CatalogBadInput, BadIndexOfASkippedRecommendation_IsNotLookedAt) {
    ParseCatalog(
        "<machine type='a'><property name='message' index='x'>"
        "<qualifier name='oemrecommendation' type='s'><value>advice</value></qualifier>"
        "<qualifier name='values' type='s'><value>v</value></qualifier>"
        "</property></machine>");
    EXPECT_EQ(MachineCount(), 1U);
}
