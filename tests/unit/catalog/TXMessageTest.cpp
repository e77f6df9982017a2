#include <catalog/TXMessage.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

TXMessage MessageWith(unsigned int number, const std::string& recommendation) {
    TXMessage message;
    message.AddRecommendation(number, recommendation);
    return message;
}

}  // namespace

TEST(TXMessage, New_HasNoRecommendations) {
    EXPECT_THAT(TXMessage().GetAllRecommendations(), IsEmpty());
    EXPECT_EQ(TXMessage().GetPropertyName(), "");
}

TEST(TXMessage, GetRecommendations_NumberWithoutTexts_IsEmpty) {
    EXPECT_THAT(MessageWith(1, "a").GetRecommendations(2), IsEmpty());
}

TEST(TXMessage, AddRecommendation_SameNumber_KeepsOrderAndDuplicates) {
    TXMessage message = MessageWith(70000, "b");
    message.AddRecommendation(1, "other");
    message.AddRecommendation(70000, "a");
    message.AddRecommendation(70000, "b");
    EXPECT_THAT(message.GetRecommendations(70000), ElementsAre("b", "a", "b"));
    EXPECT_THAT(message.GetAllRecommendations(), ElementsAre(Pair(1, "other"), Pair(70000, "b"),
                                                             Pair(70000, "a"), Pair(70000, "b")));
}

TEST(TXMessage, SetRecommendationArray_AddsToThoseHeld) {
    TXMessage message = MessageWith(1, "a");
    message.SetRecommendationArray({{1, "b"}, {0, "c"}, {1, "a"}});
    EXPECT_THAT(message.GetAllRecommendations(),
                ElementsAre(Pair(0, "c"), Pair(1, "a"), Pair(1, "b"), Pair(1, "a")));
}

TEST(TXMessage, Assignment_AccumulatesRecommendations) {
    TXMessage target = MessageWith(1, "a");
    target = MessageWith(1, "b");
    EXPECT_THAT(target.GetRecommendations(1), ElementsAre("a", "b"));
}

TEST(TXMessage, Assignment_ReplacesTheElementWithoutEmptyMapValues) {
    TXMessage source;
    source.SetPropertyName("new");
    source.AddValue(1, "text");
    source.AddValue(2, "");
    TXMessage target;
    target.SetPropertyName("old");
    target.AddValue(3, "old");
    target = source;
    EXPECT_EQ(target.GetPropertyName(), "new");
    EXPECT_THAT(target.GetValueMap(), ElementsAre(Pair(1, "text")));
}

TEST(TXMessage, AssignmentToItself_ChangesNothing) {
    TXMessage message = MessageWith(1, "a");
    message.AddValue(2, "");
    const TXMessage& same = message;
    message = same;
    EXPECT_THAT(message.GetRecommendations(1), ElementsAre("a"));
    EXPECT_THAT(message.GetValueMap(), ElementsAre(Pair(2, "")));
}

TEST(TXMessage, Copy_HoldsExactlyWhatTheSourceHolds) {
    TXMessage source = MessageWith(1, "a");
    source.AddValue(2, "");
    const TXMessage copy(source);
    EXPECT_THAT(copy.GetAllRecommendations(), ElementsAre(Pair(1, "a")));
    EXPECT_THAT(copy.GetValueMap(), ElementsAre(Pair(2, "")));
}

TEST(TXMessage, ClearAll_KeepsThePropertyNameOnly) {
    TXMessage message = MessageWith(1, "a");
    message.SetPropertyName("name");
    message.SetIndex(3);
    message.AddValue(2, "text");
    message.ClearAll();
    EXPECT_EQ(message.GetPropertyName(), "name");
    EXPECT_TRUE(message.IsIndex(0));
    EXPECT_THAT(message.GetAllRecommendations(), IsEmpty());
    EXPECT_THAT(message.GetValueMap(), IsEmpty());
}

TEST(TXMessage, ClearAllOfTheElement_LeavesTheRecommendations) {
    TXMessage message = MessageWith(1, "a");
    static_cast<TXElement&>(message).ClearAll();
    EXPECT_THAT(message.GetRecommendations(1), ElementsAre("a"));
}
