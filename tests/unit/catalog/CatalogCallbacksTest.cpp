// The parser's callbacks in orders that a tokeniser which cuts text into pieces, or reports none
// between tags, would call them in.
#include "CatalogFixture.h"

using NQUVZDX20::kLogTrace;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

namespace {

class CatalogCallbacks : public CatalogFixture {
protected:
    using Attributes = std::map<std::string, std::string>;

    void Start(const char* name, Attributes attributes = {}) {
        parser->StartElement(name, attributes);
    }
    void End(const char* name) { parser->EndElement(name); }
    void Text(const std::string& text) {
        parser->characters(text.c_str(), static_cast<unsigned int>(text.size()));
    }

    void StartMessage(const char* index) {
        Start("property", {{"name", "message"}, {"index", index}});
    }
    void StartQualifier(const char* name) {
        Start("qualifier", {{"name", name}, {"type", "string"}});
    }
    // The message of a machine that takes what was gathered.
    TXMessage Gathered() {
        Start("machine", {{"type", "7000"}});
        End("machine");
        return parser->GetMachineList().back()->GetMessege();
    }
};

}  // namespace

TEST_F(CatalogCallbacks, Text_IsReadToItsNulWhateverItsLength) {
    StartMessage("1");
    Start("value");
    parser->characters("text", 2);
    End("value");
    StartMessage("2");
    Start("value");
    parser->characters("cut\0off", 7);
    EXPECT_THAT(Gathered().GetValueMap(), ElementsAre(Pair(1, "text"), Pair(2, "cut")));
}

TEST_F(CatalogCallbacks, SecondPieceOfAMessageText_IsOutsideAValue) {
    Start("genrecommendation", {{"index", "1"}, {"value", "advice"}});
    StartMessage("1");
    Start("value");
    Text("first");
    Text("second");
    EXPECT_THAT(FakeDiagnostics::Texts(kLogTrace),
                Not(Contains("BMCI2C Parser Line 0:Added second")));
    const TXMessage message = Gathered();
    EXPECT_THAT(message.GetValueMap(), ElementsAre(Pair(1, "first")));
    EXPECT_THAT(message.GetRecommendations(1), ElementsAre("advice"));
}

TEST_F(CatalogCallbacks, RecommendationInTwoPieces_IsStoredJoinedOnceTextOutsideFollows) {
    StartMessage("4");
    StartQualifier("recommendation");
    Start("value");
    Text("one, ");
    Text("two");
    End("value");
    EXPECT_THAT(Gathered().GetAllRecommendations(), IsEmpty());
    Text("");
    EXPECT_THAT(Gathered().GetRecommendations(4), ElementsAre("one, two"));
}

TEST_F(CatalogCallbacks, EmptyTextForABuild_IsIgnoredWhateverTheIndex) {
    StartMessage("not a number");
    for (const char* kind : {"quvrecommendation", "oemrecommendation"}) {
        StartQualifier(kind);
        Start("value");
        EXPECT_NO_THROW(Text(""));
    }
    EXPECT_THAT(Gathered().GetAllRecommendations(), IsEmpty());
}

TEST_F(CatalogCallbacks, SecondPieceUnderAStandardRecommendation_IsOutsideAValue) {
    StartMessage("1");
    StartQualifier("quvrecommendation");
    Start("value");
    Text("first");
    Text("second");
    EXPECT_THAT(Gathered().GetRecommendations(1), ElementsAre("first"));
}

TEST_F(CatalogCallbacks, SecondPieceUnderAnOemRecommendation_IsOutsideAValue) {
    MakeParser(Build::Oem);
    StartMessage("1");
    StartQualifier("oemrecommendation");
    Start("value");
    Text("first");
    Text("second");
    EXPECT_THAT(Gathered().GetRecommendations(1), ElementsAre("first"));
}

TEST_F(CatalogCallbacks, TextUnderQualifierValues_LeavesTheValueOpen) {
    StartMessage("1");
    StartQualifier("values");
    Start("value");
    Text("ignored");
    End("qualifier");
    Text("taken");
    EXPECT_THAT(Gathered().GetValueMap(), ElementsAre(Pair(1, "taken")));
}

TEST_F(CatalogCallbacks, TextUnderQualifierValuesOfAnyProperty_LeavesAPendingRecommendation) {
    StartMessage("1");
    StartQualifier("recommendation");
    Start("value");
    Text("pending");
    End("value");
    Start("property", {{"name", "machine_type"}, {"index", "1"}});
    StartQualifier("values");
    Start("value");
    Text("ignored");
    EXPECT_THAT(Gathered().GetAllRecommendations(), IsEmpty());
    End("value");
    Text("");
    EXPECT_THAT(Gathered().GetRecommendations(1), ElementsAre("pending"));
}

TEST_F(CatalogCallbacks, PendingRecommendation_WaitsWhileTheTextsOfValuesAreTaken) {
    StartMessage("1");
    StartQualifier("recommendation");
    Start("value");
    Text("pending");
    End("value");
    End("qualifier");
    StartMessage("2");
    Start("value");
    Text("message 2");
    const TXMessage early = Gathered();
    EXPECT_THAT(early.GetValueMap(), ElementsAre(Pair(2, "message 2")));
    EXPECT_THAT(early.GetAllRecommendations(), IsEmpty());
    StartMessage("3");
    Text("outside");
    EXPECT_THAT(Gathered().GetAllRecommendations(), ElementsAre(Pair(3, "pending")));
}

TEST_F(CatalogCallbacks, StoredRecommendation_IsForgotten) {
    StartMessage("1");
    StartQualifier("recommendation");
    Start("value");
    Text("one");
    End("value");
    Text("outside");
    Text("outside");
    Start("value");
    Text("two");
    End("value");
    Text("outside");
    EXPECT_THAT(Gathered().GetRecommendations(1), ElementsAre("one", "two"));
}

TEST_F(CatalogCallbacks, EmptyPieceUnderRecommendation_IsAnEmptyRecommendation) {
    StartMessage("1");
    StartQualifier("recommendation");
    Start("value");
    Text("");
    End("value");
    Text("");
    EXPECT_THAT(Gathered().GetRecommendations(1), ElementsAre(""));
}

TEST_F(CatalogCallbacks, ValueOfAMachineTypeProperty_StoresAPendingRecommendation) {
    StartMessage("1");
    StartQualifier("recommendation");
    Start("value");
    Text("pending");
    End("value");
    Start("property", {{"name", "machine_type"}, {"index", "7"}});
    Start("value");
    Text("7000");
    EXPECT_THAT(Gathered().GetAllRecommendations(), ElementsAre(Pair(7, "pending")));
}

TEST_F(CatalogCallbacks, ValueOfAMachineTypeProperty_EndsWithItsFirstText) {
    Start("property", {{"name", "machine_type"}, {"index", "1"}});
    Start("value");
    Text("7000");
    Start("property", {{"name", "message"}});
    Text("outside");
    EXPECT_THAT(Gathered().GetValueMap(), IsEmpty());
}

TEST_F(CatalogCallbacks, EmptyMessageText_IsStoredButNotHandedOn) {
    Start("genrecommendation", {{"index", "1"}, {"value", "advice"}});
    StartMessage("1");
    Start("value");
    Text("");
    Start("value");
    Text("late");
    const TXMessage message = Gathered();
    EXPECT_THAT(message.GetValueMap(), IsEmpty());
    EXPECT_THAT(message.GetRecommendations(1), ElementsAre("advice", "advice"));
}
