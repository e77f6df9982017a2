#include <cimxml/load/Turns.h>
#include <gtest/gtest.h>

namespace cimxml {
namespace {

TEST(Turns, SoManyAtOnce_TheOthersInTheirOrder) {
    std::string woken;
    Turns turns(2);
    Turns::Ticket tickets[5];
    for (int number = 0; number < 5; ++number) {
        tickets[number].wake = [&woken, number] { woken += std::to_string(number); };
        EXPECT_EQ(turns.Ask(tickets[number]), number < 2);
    }
    turns.Leave(tickets[3]);
    turns.End();
    EXPECT_EQ(woken, "2");
    EXPECT_TRUE(tickets[2].hasTurn);
    turns.End();
    EXPECT_EQ(woken, "24");
    EXPECT_FALSE(tickets[3].hasTurn);
    turns.End();
    turns.End();
    EXPECT_EQ(woken, "24");
    EXPECT_TRUE(turns.Ask(tickets[3]));
}

}  // namespace
}  // namespace cimxml
