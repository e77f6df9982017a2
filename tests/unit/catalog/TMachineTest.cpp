#include <catalog/TMachine.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

static_assert(!std::is_polymorphic_v<TMachine>);

TEST(TMachine, New_HasItsTypeAndAnEmptyMessage) {
    const TMachine machine("7000");
    EXPECT_THAT(machine.GetMachineTypes(), ElementsAre("7000"));
    EXPECT_THAT(machine.GetMessege().GetValueMap(), IsEmpty());
    EXPECT_THAT(machine.GetMessege().GetAllRecommendations(), IsEmpty());
}

TEST(TMachine, NewWithAnEmptyType_HoldsTheEmptyType) {
    EXPECT_THAT(TMachine("").GetMachineTypes(), ElementsAre(""));
}

TEST(TMachine, AddMachineType_KeepsOrderAndDuplicates) {
    TMachine machine("b");
    machine.AddMachineType("a");
    machine.AddMachineType("b");
    EXPECT_THAT(machine.GetMachineTypes(), ElementsAre("b", "a", "b"));
}

TEST(TMachine, SetMessegeTwice_ReplacesTextsAndAccumulatesRecommendations) {
    TMachine machine("7000");
    TXMessage message;
    message.AddValue(1, "one");
    message.AddRecommendation(1, "a");
    machine.SetMessege(message);
    message.ClearAll();
    message.AddValue(2, "two");
    message.AddValue(3, "");
    message.AddRecommendation(1, "b");
    machine.SetMessege(message);
    EXPECT_THAT(machine.GetMessege().GetValueMap(), ElementsAre(Pair(2, "two")));
    EXPECT_THAT(machine.GetMessege().GetRecommendations(1), ElementsAre("a", "b"));
}

TEST(TMachine, GetMessege_ReturnsACopy) {
    const TMachine machine("7000");
    machine.GetMessege().AddValue(1, "lost");
    EXPECT_THAT(machine.GetMessege().GetValueMap(), IsEmpty());
}
