// Which recommendations a message gets, in a standard and in an OEM build.
#include "CatalogFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

class CatalogRecommendation : public CatalogFixture {
protected:
    // Reads a catalog with one message, numbered 4, of the given elements.
    void ParseMessage(const std::string& elements) {
        ParseCatalog("<machine type='a'><property name='message' index='4'>" + elements +
                     "</property></machine>");
    }
    std::vector<std::string> Advice() const { return Machine().GetMessege().GetRecommendations(4); }
};

constexpr char kAdviceOfEveryKind[] =
    "<qualifier name='recommendation' type='s'><value>both</value></qualifier>"
    "<qualifier name='quvrecommendation' type='s'><value>standard</value></qualifier>"
    "<qualifier name='oemrecommendation' type='s'><value>oem</value></qualifier>";

constexpr char kGeneralAdviceOfBothKinds[] =
    "<genrecommendation index='1' value='&amp;lt;general&amp;gt;'/>"
    "<oemrecommendation index='1' value='&amp;lt;oem&amp;gt;'/>"
    "<machine type='a'><property name='message' index='4'><value>text</value></property></machine>";

}  // namespace

TEST_F(CatalogRecommendation, StandardBuild_TakesCommonAndStandardOnes) {
    ParseMessage(kAdviceOfEveryKind);
    EXPECT_THAT(Machine().GetMessege().GetAllRecommendations(),
                ElementsAre(Pair(4, "both"), Pair(4, "standard")));
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), IsEmpty());
}

TEST_F(CatalogRecommendation, OemBuild_TakesCommonAndOemOnes) {
    MakeParser(Build::Oem);
    ParseMessage(kAdviceOfEveryKind);
    EXPECT_THAT(Machine().GetMessege().GetAllRecommendations(),
                ElementsAre(Pair(4, "both"), Pair(4, "oem")));
    EXPECT_THAT(Machine().GetMessege().GetValueMap(), IsEmpty());
}

TEST_F(CatalogRecommendation, BuildKind_IsReadOnceWhenTheParserIsMade) {
    FakeDiagnostics::oemBuild = true;
    ParseMessage(kAdviceOfEveryKind);
    EXPECT_THAT(Advice(), ElementsAre("both", "standard"));
}

TEST_F(CatalogRecommendation, SeveralValuesOfAnArray_AreStoredEach) {
    ParseMessage(
        "<qualifier name='recommendation' type='s'><value.array>"
        "<value>one</value><value>two</value></value.array></qualifier>");
    EXPECT_THAT(Advice(), ElementsAre("one", "two"));
}

TEST_F(CatalogRecommendation, FollowedByTheNextPropertyAtOnce_KeepsItsOwnNumber) {
    ParseCatalog(
        "<machine type='a'><property name='message' index='4'>"
        "<qualifier name='recommendation' type='s'><value>four</value></qualifier>"
        "</property><property name='message' index='5'><value>five</value>"
        "</property></machine>");
    EXPECT_THAT(Machine().GetMessege().GetAllRecommendations(), ElementsAre(Pair(4, "four")));
}

TEST_F(CatalogRecommendation, GeneralOneInAStandardBuild_JoinsTheMessageWithItsBracketsUnescaped) {
    ParseCatalog(kGeneralAdviceOfBothKinds);
    EXPECT_THAT(Advice(), ElementsAre("<general>"));
}

TEST_F(CatalogRecommendation, GeneralOneInAnOemBuild_IsTheOemOneAsWritten) {
    MakeParser(Build::Oem);
    ParseCatalog(kGeneralAdviceOfBothKinds);
    EXPECT_THAT(Advice(), ElementsAre("&lt;oem&gt;"));
}

TEST_F(CatalogRecommendation, GeneralOne_WithEveryBracketTwice_IsUnescapedThroughout) {
    ParseCatalog(
        "<genrecommendation index='1' value='&amp;lt;&amp;lt;a&amp;gt;&amp;gt;&amp;amp;'/>"
        "<machine type='a'><property name='message' index='4'><value>text</value>"
        "</property></machine>");
    EXPECT_THAT(Advice(), ElementsAre("<<a>>&amp;"));
}

TEST_F(CatalogRecommendation, GeneralOnes_JoinEveryLaterMessageOfTheFile) {
    ParseCatalog(
        "<machine type='a'>"
        "<property name='message' index='1'><value>early</value></property>"
        "<genrecommendation index='1' value='first'/>"
        "<property name='message' index='2'><value>later</value></property></machine>"
        "<genrecommendation index='1' value='second'/>"
        "<machine type='b'>"
        "<property name='message' index='3'><value>last</value></property></machine>");
    EXPECT_THAT(Machine(0).GetMessege().GetAllRecommendations(), ElementsAre(Pair(2, "first")));
    EXPECT_THAT(Machine(1).GetMessege().GetAllRecommendations(),
                ElementsAre(Pair(3, "first"), Pair(3, "second")));
}

TEST_F(CatalogRecommendation, GeneralOneWithoutValue_InheritsThatOfTheLast) {
    ParseCatalog(
        "<genrecommendation index='1' value='again'/><genrecommendation/>"
        "<machine type='a'><property name='message' index='4'><value>text</value>"
        "</property></machine>");
    EXPECT_THAT(Advice(), ElementsAre("again", "again"));
    EXPECT_THAT(Errors(), IsEmpty());
}

TEST_F(CatalogRecommendation, GeneralOneWithoutAnyValue_JoinsAsAnEmptyText) {
    ParseCatalog(
        "<genrecommendation index='1'/>"
        "<machine type='a'><property name='message' index='4'><value>text</value>"
        "</property></machine>");
    EXPECT_THAT(Advice(), ElementsAre(""));
}
