#include <cli/report/BusStatus.h>
#include <gmock/gmock.h>

#include "Records.h"

namespace cli {
namespace {

using Outcome = ControllerStatus::Outcome;
using testing::SizeIs;

TEST(BusStatusFromRecords, FailedBus_IsKnownAndThoseBelowAreGood) {
    const auto controllers =
        StatusFromRecords({Record(5, "166-000-001 Pass\n166-903-002 Bus 2 failed")}, 2);
    ASSERT_THAT(controllers, SizeIs(2));
    EXPECT_EQ(controllers[0].outcome, Outcome::Examined);
    EXPECT_EQ(controllers[1].busses, (std::vector<Bus>{Bus::Good, Bus::Good, Bus::Failed}));
}

TEST(BusStatusFromRecords, LinesOfUnjudgedControllers_TellWhy) {
    const auto controllers = StatusFromRecords(
        {Record(6, "166-802-001 Not sent166-804-002 Unknown command\n166-801-003 Short")}, 4);
    ASSERT_THAT(controllers, SizeIs(4));
    EXPECT_EQ(controllers[0].outcome, Outcome::NotDelivered);
    EXPECT_EQ(controllers[1].outcome, Outcome::Refused);
    EXPECT_EQ(controllers[1].completionCode, 0xC1U);
    EXPECT_EQ(controllers[2].outcome, Outcome::BadLength);
    EXPECT_EQ(controllers[3].outcome, Outcome::NotAsked);
}

TEST(BusStatusFromRecords, UnsupportedMachine_MeansThatNoControllerWasAsked) {
    const auto controllers = StatusFromRecords({Record(6, "166-899-001 Aborted")}, 1);
    ASSERT_THAT(controllers, SizeIs(1));
    EXPECT_EQ(controllers[0].outcome, Outcome::NotAsked);
}

TEST(BusStatusFromRecords, MessageBeforeTheFirstController_BelongsToNone) {
    EXPECT_THAT(StatusFromRecords({Record(6, "166-102-000 Machine type empty")}, 0), SizeIs(0));
}

}  // namespace
}  // namespace cli
