#include <gtest/gtest.h>
#include <platform/service_processor/TimeShare.h>

#include "Requests.h"

namespace platform {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr seconds kNodeLimit{4};

constexpr bool kBusy = true;
constexpr bool kNotBusy = false;

class TimeShareTest : public testing::Test {
protected:
    // What a command that takes `time` may take.
    milliseconds Total(int node, const IpmiRequest& request, milliseconds time = {},
                       bool isBusy = kNotBusy, milliseconds limit = kNodeLimit) {
        const TimeAllowance allowance = share.Begin(node, request, limit, now);
        now += time;
        share.End(isBusy, now);
        return allowance.total;
    }

    TimeShare share;
    Time now{};
};

TEST_F(TimeShareTest, FirstCommand_HasTheLimitAndThePause) {
    const TimeAllowance allowance = share.Begin(0, kStatus, kNodeLimit, now);
    EXPECT_EQ(allowance.silence, seconds(4));
    EXPECT_EQ(allowance.total, milliseconds(8750));
}

TEST_F(TimeShareTest, SecondStatusAfterABusyAnswer_HasTheRest) {
    Total(0, kStatus, milliseconds(1000), kBusy);
    now += seconds(5);
    EXPECT_EQ(Total(0, kStatus), milliseconds(2750));
}

TEST_F(TimeShareTest, RestBelowTheLimit_IsTheLongestSilence) {
    Total(0, kStatus, milliseconds(1000), kBusy);
    now += seconds(5);
    EXPECT_EQ(share.Begin(0, kStatus, kNodeLimit, now).silence, milliseconds(2750));
}

TEST_F(TimeShareTest, ThirdStatusAfterTwoBusyAnswers_IsOfAnotherRun) {
    Total(0, kStatus, milliseconds(1000), kBusy);
    Total(0, kStatus, milliseconds(1000), kBusy);
    EXPECT_EQ(Total(0, kStatus), milliseconds(8750));
}

TEST_F(TimeShareTest, StatusLongAfterABusyAnswer_IsOfAnotherRun) {
    Total(0, kStatus, milliseconds(1000), kBusy);
    now += milliseconds(6001);
    EXPECT_EQ(Total(0, kStatus), milliseconds(8750));
}

TEST_F(TimeShareTest, StatusAfterAnotherAnswer_IsOfAnotherRun) {
    Total(0, kStatus, milliseconds(1000));
    EXPECT_EQ(Total(0, kStatus), milliseconds(8750));
}

TEST_F(TimeShareTest, StatusOfAnotherNode_HasItsOwnShare) {
    Total(0, kStatus, milliseconds(1000), kBusy);
    EXPECT_EQ(Total(1, kStatus), milliseconds(8750));
}

TEST_F(TimeShareTest, GenerationQuery_HasTheRestOfTheStatusBeforeIt) {
    Total(1, kStatus, milliseconds(3000));
    EXPECT_EQ(Total(0, kGeneration), milliseconds(5750));
}

TEST_F(TimeShareTest, GenerationQueryAfterABusyAnswer_HasTheRestOfAllBeforeIt) {
    Total(0, kStatus, milliseconds(1000), kBusy);
    now += seconds(5);
    Total(0, kStatus, milliseconds(1000));
    EXPECT_EQ(Total(0, kGeneration), milliseconds(1750));
}

TEST_F(TimeShareTest, GenerationQueryOfAnotherLimit_KeepsTheLimitOfTheShare) {
    Total(1, kStatus, milliseconds(1000));
    EXPECT_EQ(Total(0, kGeneration, {}, kNotBusy, seconds(60)), milliseconds(7750));
}

TEST_F(TimeShareTest, BusyAnswerToTheGenerationQuery_IsNotThatOfTheStatus) {
    Total(0, kStatus, milliseconds(1000));
    Total(0, kGeneration, milliseconds(1000), kBusy);
    EXPECT_EQ(Total(0, kStatus), milliseconds(8750));
}

TEST_F(TimeShareTest, SecondGenerationQuery_BeginsAShare) {
    Total(0, kStatus, milliseconds(1000));
    Total(0, kGeneration, milliseconds(1000));
    EXPECT_EQ(Total(0, kGeneration), milliseconds(8750));
}

TEST_F(TimeShareTest, QuestionWhoTheControllerIs_CountsForItsStatus) {
    Total(0, kDeviceId, milliseconds(4000));
    EXPECT_EQ(Total(0, kStatus, milliseconds(1000)), milliseconds(4750));
    EXPECT_EQ(Total(0, kGeneration), milliseconds(3750));
}

TEST_F(TimeShareTest, QuestionLongBeforeTheStatus_DoesNotCount) {
    Total(0, kDeviceId, milliseconds(4000));
    now += milliseconds(6001);
    EXPECT_EQ(Total(0, kStatus), milliseconds(8750));
}

TEST_F(TimeShareTest, PauseAfterABusyAnswer_MustFit) {
    share.Begin(0, kStatus, kNodeLimit, now);
    EXPECT_TRUE(share.End(kBusy, now + milliseconds(3750)));
    now += seconds(60);
    share.Begin(0, kStatus, kNodeLimit, now);
    EXPECT_FALSE(share.End(kBusy, now + milliseconds(3751)));
}

TEST_F(TimeShareTest, NoPauseFollowsTheSecondBusyAnswer) {
    Total(0, kStatus, milliseconds(1000), kBusy);
    now += seconds(5);
    share.Begin(0, kStatus, kNodeLimit, now);
    EXPECT_TRUE(share.End(kBusy, now + milliseconds(2750)));
}

TEST(ShareOfThisThread, IsTheSameForOneThread) {
    EXPECT_EQ(&ShareOfThisThread(), &ShareOfThisThread());
}

}  // namespace
}  // namespace platform
