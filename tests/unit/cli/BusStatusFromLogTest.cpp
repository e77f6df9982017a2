#include <cli/report/BusStatus.h>
#include <gmock/gmock.h>

#include "RunLog.h"

namespace cli {
namespace {

using Outcome = ControllerStatus::Outcome;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<std::size_t> BussesIn(const ControllerStatus& controller, Bus state) {
    std::vector<std::size_t> found;
    for (std::size_t bus = 0; bus < controller.busses.size(); ++bus)
        if (controller.busses[bus] == state) found.push_back(bus);
    return found;
}

TEST(BusStatusFromLog, NoLines_TellOfNoController) { EXPECT_THAT(StatusFromLog({}, 2), IsEmpty()); }

TEST(BusStatusFromLog, TwoStatusBytes_AreSixteenBusses) {
    const auto controllers = StatusFromLog(RunLog(1).Controller({0x00, 0x00}).lines, 1);
    ASSERT_THAT(controllers, SizeIs(1));
    EXPECT_EQ(controllers[0].outcome, Outcome::Examined);
    EXPECT_EQ(controllers[0].busses, std::vector<Bus>(16, Bus::Good));
}

TEST(BusStatusFromLog, SetBits_AreFailedBusses) {
    const auto controllers =
        StatusFromLog(RunLog(2).Controller({0x00, 0x00}).Controller({0x04, 0x80}).lines, 2);
    ASSERT_THAT(controllers, SizeIs(2));
    EXPECT_THAT(BussesIn(controllers[0], Bus::Failed), IsEmpty());
    EXPECT_EQ(BussesIn(controllers[1], Bus::Failed), (std::vector<std::size_t>{2, 15}));
}

TEST(BusStatusFromLog, BitBehindTheLastStatusByte_IsABusThatTheRunReports) {
    const auto lines = RunLog(1).Ask().Delivered(true).Answer(2, 0, {0x00, 0x01}).lines;
    const auto controllers = StatusFromLog(lines, 1);
    EXPECT_THAT(controllers[0].busses, SizeIs(16));
    EXPECT_EQ(BussesIn(controllers[0], Bus::Failed), std::vector<std::size_t>{8});
}

TEST(BusStatusFromLog, AnswerLongerThanTheBuffer_EndsWithTheBuffer) {
    const auto lines = RunLog(1).Ask().Delivered(true).Answer(100000, 0, {}).lines;
    EXPECT_THAT(StatusFromLog(lines, 1)[0].busses, SizeIs(8 * (256 - 9)));
}

TEST(BusStatusFromLog, OxcV1_HasNoBusses6And7) {
    const auto controllers =
        StatusFromLog(RunLog(1).Controller({0xC1, 0xC0}).Generation(1).lines, 1);
    EXPECT_EQ(BussesIn(controllers[0], Bus::None), (std::vector<std::size_t>{6, 7}));
    EXPECT_EQ(BussesIn(controllers[0], Bus::Failed), (std::vector<std::size_t>{0, 14, 15}));
}

TEST(BusStatusFromLog, OxcV2WithASecondByte_GivesItNoBusNumbers) {
    const auto controllers =
        StatusFromLog(RunLog(1).Controller({0x01, 0xFF, 0x02}).Generation(2).lines, 1);
    EXPECT_THAT(controllers[0].busses, SizeIs(16));
    EXPECT_EQ(BussesIn(controllers[0], Bus::Failed), (std::vector<std::size_t>{0, 9}));
    EXPECT_THAT(BussesIn(controllers[0], Bus::None), IsEmpty());
    EXPECT_TRUE(controllers[0].hasBytesWithoutBusses);
}

TEST(BusStatusFromLog, OxcV2WithAZeroSecondByte_GivesItBusNumbers) {
    const auto controllers =
        StatusFromLog(RunLog(1).Controller({0x01, 0x00, 0x02}).Generation(2).lines, 1);
    EXPECT_THAT(controllers[0].busses, SizeIs(24));
    EXPECT_EQ(BussesIn(controllers[0], Bus::Failed), (std::vector<std::size_t>{0, 17}));
    EXPECT_EQ(BussesIn(controllers[0], Bus::None),
              (std::vector<std::size_t>{8, 9, 10, 11, 12, 13, 14, 15}));
    EXPECT_FALSE(controllers[0].hasBytesWithoutBusses);
}

TEST(BusStatusFromLog, ControllerThatIsNotReached_IsNotDelivered) {
    const auto controllers =
        StatusFromLog(RunLog(2).Ask().Delivered(false).Controller({0x00}).lines, 2);
    EXPECT_EQ(controllers[0].outcome, Outcome::NotDelivered);
    EXPECT_EQ(controllers[1].outcome, Outcome::Examined);
}

TEST(BusStatusFromLog, ShortAnswer_EndsTheRunForLaterControllers) {
    const auto controllers =
        StatusFromLog(RunLog(2).Ask().Delivered(true).Answer(1, 0, {}).lines, 2);
    ASSERT_THAT(controllers, SizeIs(2));
    EXPECT_EQ(controllers[0].outcome, Outcome::BadLength);
    EXPECT_EQ(controllers[0].length, 1);
    EXPECT_EQ(controllers[1].outcome, Outcome::NotAsked);
}

TEST(BusStatusFromLog, NegativeLength_IsABadLength) {
    const auto controllers =
        StatusFromLog(RunLog(1).Ask().Delivered(true).Answer(-5, 0, {}).lines, 1);
    EXPECT_EQ(controllers[0].outcome, Outcome::BadLength);
    EXPECT_EQ(controllers[0].length, -5);
}

TEST(BusStatusFromLog, CompletionCode_IsRefused) {
    const auto controllers =
        StatusFromLog(RunLog(1).Ask().Delivered(true).Answer(2, 0xC1, {}).lines, 1);
    EXPECT_EQ(controllers[0].outcome, Outcome::Refused);
    EXPECT_EQ(controllers[0].completionCode, 0xC1U);
}

TEST(BusStatusFromLog, CountBeyondTheAskedControllers_IsNotAsked) {
    const auto controllers = StatusFromLog(RunLog(0).Controller({0x00}).lines, 3);
    ASSERT_THAT(controllers, SizeIs(3));
    EXPECT_EQ(controllers[2].outcome, Outcome::NotAsked);
}

TEST(BusStatusFromLog, DumpWithoutARequest_IsPassedOver) {
    EXPECT_THAT(StatusFromLog(RunLog(0).Answer(2, 0, {0x01}).Delivered(false).lines, 1), IsEmpty());
}

}  // namespace
}  // namespace cli
