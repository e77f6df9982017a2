#include <gmock/gmock.h>
#include <platform/service_processor/simulated/SimulatedTransport.h>

#include "NodeWith.h"
#include "Requests.h"
#include "TroubleOf.h"

namespace platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr TimeAllowance kAllowance = ShareFrom(Time(), std::chrono::milliseconds(1000));

class SimulatedTransportTest : public testing::Test {
protected:
    IpmiAnswer Ask(const SimulatedNode& node, const IpmiRequest& request, int number = 0,
                   int generation = 1) {
        SimulatedTransport transport(std::make_shared<SimulatedNode>(node), generation, number,
                                     counts);
        return transport.Send(request, kAllowance);
    }

    RequestCounts counts;
};

TEST_F(SimulatedTransportTest, StatusOfNodeWithData_GivesCodeZeroAndTheData) {
    const IpmiAnswer answer = Ask(NodeWith([](auto& it) { it.data = {0x00, 0x80}; }), kStatus);

    EXPECT_EQ(answer.completionCode, 0x00);
    EXPECT_THAT(answer.data, ElementsAre(0x00, 0x80));
    EXPECT_EQ(answer.length, std::nullopt);
    EXPECT_EQ(answer.attempts, 1);
}

TEST_F(SimulatedTransportTest, CompletionCodeWithData_GivesBothAsGiven) {
    const IpmiAnswer answer = Ask(NodeWith([](auto& it) {
                                      it.data = {0x01};
                                      it.completionCode = 0xC1;
                                  }),
                                  kStatus);

    EXPECT_EQ(answer.completionCode, 0xC1);
    EXPECT_THAT(answer.data, ElementsAre(0x01));
}

TEST_F(SimulatedTransportTest, CompletionCodeOfTheProfile_IsOfTheStatusOnly) {
    EXPECT_EQ(Ask(NodeWith([](auto& it) { it.completionCode = 0xC1; }), kGeneration).completionCode,
              0x00);
}

TEST_F(SimulatedTransportTest, BusyTwice_AnswersTheFirstTwoRequestsWithFFAndNoData) {
    const SimulatedNode node = NodeWith([](auto& it) {
        it.data = {0x01};
        it.completionCode = 0x00;
        it.busy = 2;
    });
    for (int request = 0; request < 2; ++request) {
        const IpmiAnswer busy = Ask(node, kStatus);
        EXPECT_EQ(busy.completionCode, 0xFF);
        EXPECT_THAT(busy.data, IsEmpty());
    }

    const IpmiAnswer third = Ask(node, kStatus);

    EXPECT_EQ(third.completionCode, 0x00);
    EXPECT_THAT(third.data, ElementsAre(0x01));
}

TEST_F(SimulatedTransportTest, BusyOnce_IsCountedForEachNode) {
    const SimulatedNode node = NodeWith([](auto& it) { it.busy = 1; });

    EXPECT_EQ(Ask(node, kStatus, 0).completionCode, 0xFF);
    EXPECT_EQ(Ask(node, kStatus, 1).completionCode, 0xFF);
    EXPECT_EQ(Ask(node, kStatus, 0).completionCode, 0x00);
    EXPECT_EQ(Ask(node, kStatus, 1).completionCode, 0x00);
}

TEST_F(SimulatedTransportTest, BusyOnce_CountsRequestsOfAnyKind) {
    const SimulatedNode node = NodeWith([](auto& it) { it.busy = 1; });

    EXPECT_EQ(Ask(node, kGeneration).completionCode, 0xFF);
    EXPECT_EQ(Ask(node, kStatus).completionCode, 0x00);
}

TEST_F(SimulatedTransportTest, CountsOfTheProcess_OutliveTransports) {
    const auto node = std::make_shared<SimulatedNode>(NodeWith([](auto& it) { it.busy = 1; }));
    constexpr int kNumberOfNoOtherTest = 4711;

    EXPECT_EQ(
        SimulatedTransport(node, 1, kNumberOfNoOtherTest).Send(kStatus, kAllowance).completionCode,
        0xFF);
    EXPECT_EQ(
        SimulatedTransport(node, 1, kNumberOfNoOtherTest).Send(kStatus, kAllowance).completionCode,
        0x00);
}

TEST_F(SimulatedTransportTest, LengthOfTheProfile_GoesWithTheStatus) {
    EXPECT_EQ(Ask(NodeWith([](auto& it) {
                      it.data = {0x01};
                      it.length = -5;
                  }),
                  kStatus)
                  .length,
              -5);
}

TEST_F(SimulatedTransportTest, LengthOfTheProfile_GoesWithABusyStatus) {
    EXPECT_EQ(Ask(NodeWith([](auto& it) {
                      it.busy = 1;
                      it.length = 1;
                  }),
                  kStatus)
                  .length,
              1);
}

TEST_F(SimulatedTransportTest, LengthOfTheProfile_IsOfTheStatusOnly) {
    EXPECT_EQ(Ask(NodeWith([](auto& it) { it.length = 1; }), kGeneration).length, std::nullopt);
    EXPECT_EQ(Ask(NodeWith([](auto& it) { it.length = 1; }), kDeviceId).length, std::nullopt);
}

TEST_F(SimulatedTransportTest, NodeThatDoesNotAnswer_Throws) {
    for (const IpmiRequest& request : {kStatus, kGeneration, kDeviceId}) {
        EXPECT_EQ(
            TroubleOf([&] { Ask(NodeWith([](auto& it) { it.answers = false; }), request); }),
            (ThrownTrouble{TroubleCode::NoAnswer, "The simulated controller does not answer."}));
    }
}

TEST_F(SimulatedTransportTest, RequestThatIsNotAnswered_IsNotCountedAsBusy) {
    EXPECT_NE(TroubleOf([&] {
                  Ask(NodeWith([](auto& it) {
                          it.busy = 1;
                          it.answers = false;
                      }),
                      kStatus);
              }),
              std::nullopt);
    EXPECT_EQ(Ask(NodeWith([](auto& it) { it.busy = 1; }), kStatus).completionCode, 0xFF);
}

TEST_F(SimulatedTransportTest, GenerationOne_HasBitZeroOfTheSecondByteClear) {
    const IpmiAnswer answer = Ask(NodeWith([](auto& it) { it.data = {0xFF}; }), kGeneration, 0, 1);
    EXPECT_EQ(answer.completionCode, 0x00);
    EXPECT_THAT(answer.data, ElementsAre(0x00, 0x00));
}

TEST_F(SimulatedTransportTest, GenerationTwo_HasBitZeroOfTheSecondByteSet) {
    EXPECT_THAT(Ask({}, kGeneration, 0, 2).data, ElementsAre(0x00, 0x01));
}

TEST_F(SimulatedTransportTest, GenerationOfAnotherNode_IsTheSame) {
    EXPECT_THAT(Ask({}, kGeneration, 3, 2).data, ElementsAre(0x00, 0x01));
}

TEST_F(SimulatedTransportTest, GetDeviceId_AnswersAsAnIpmi20Controller) {
    const IpmiAnswer answer = Ask(NodeWith([](auto& it) { it.completionCode = 0xC1; }), kDeviceId);

    EXPECT_EQ(answer.completionCode, 0x00);
    ASSERT_THAT(answer.data, SizeIs(11));
    EXPECT_EQ(answer.data[4], 0x02);
}

TEST_F(SimulatedTransportTest, UnknownCommand_AnswersC1WithoutData) {
    for (const IpmiRequest& request :
         {IpmiRequest{.netFn = kOemNetFn, .lun = 0, .command = 0x0A},
          IpmiRequest{.netFn = kAppNetFn, .lun = 0, .command = kI2cBusStatus}}) {
        const IpmiAnswer answer = Ask(NodeWith([](auto& it) {
                                          it.data = {0x01};
                                          it.length = 9;
                                      }),
                                      request);
        EXPECT_EQ(answer.completionCode, 0xC1);
        EXPECT_THAT(answer.data, IsEmpty());
        EXPECT_EQ(answer.length, std::nullopt);
    }
}

TEST_F(SimulatedTransportTest, GenerationThatIsNotAnswered_LeavesTheStatusAnswered) {
    const SimulatedNode node = NodeWith([](auto& it) { it.answersGeneration = false; });
    EXPECT_EQ(TroubleOf([&] { Ask(node, kGeneration); })->kind, TroubleCode::NoAnswer);
    EXPECT_EQ(Ask(node, kStatus).completionCode, 0x00);
}

TEST_F(SimulatedTransportTest, GenerationThatIsRefused_HasItsCode) {
    const SimulatedNode node = NodeWith([](auto& it) { it.generationCompletionCode = 0xC1; });
    EXPECT_EQ(Ask(node, kGeneration).completionCode, 0xC1);
    EXPECT_EQ(Ask(node, kStatus).completionCode, 0x00);
}

TEST_F(SimulatedTransportTest, DeviceIdThatIsNotAnswered_LeavesTheRestAnswered) {
    const SimulatedNode node = NodeWith([](auto& it) { it.answersDeviceId = false; });
    EXPECT_EQ(TroubleOf([&] { Ask(node, {.netFn = kAppNetFn, .command = kGetDeviceId}); })->kind,
              TroubleCode::NoAnswer);
    EXPECT_EQ(Ask(node, kGeneration).completionCode, 0x00);
}

}  // namespace
}  // namespace platform
