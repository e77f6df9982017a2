#include <gmock/gmock.h>

#include <stdexcept>

#include "EngineFixture.h"

using engine::kStatus;
using engine::RecordView;
using ::testing::ElementsAre;

namespace {

class SeveralControllers : public engine::EngineTest {
protected:
    SeveralControllers() { FakeServiceProcessor::nodeCount = 2; }

    static void LeaveUnanswered(int node) {
        FakeServiceProcessor::Script(node, kStatus, {.delivered = false});
    }

    std::vector<int> NodesAsked() const {
        std::vector<int> nodes;
        for (const SentRequest& request : FakeServiceProcessor::Requests()) {
            nodes.push_back(request.node);
        }
        return nodes;
    }
};

constexpr char kPass1[] = "166-000-001 PASS: All busses work.";
constexpr char kPass2[] = "166-000-002 PASS: All busses work.";
constexpr char kBus15Of1[] = "166-916-001 FAULT: Bus 15 failed.";
constexpr char kNoAnswer1[] = "166-802-001 STOP: The controller does not answer.";
constexpr char kNoAnswer2[] = "166-802-002 STOP: The controller does not answer.";
constexpr char kCodeC1Of2[] = "166-804-002 STOP: Code C1.";

std::string Below(const std::string& first, const std::string& second) {
    return first + "\n" + second;
}

}  // namespace

TEST_F(SeveralControllers, AllPass_OneRecordHoldsBothTexts) {
    AnswerStatus(0, {0});
    AnswerStatus(1, {0});
    Run();
    EXPECT_THAT(Records(), ElementsAre(RecordView{"I2C Bus", Below(kPass1, kPass2), 2}));
    EXPECT_THAT(NodesAsked(), ElementsAre(0, 1));
    EXPECT_EQ(Test().nodeCount, 2);
}

TEST_F(SeveralControllers, BusFailedThenPass_StateStays5) {
    AnswerStatus(0, {0, 0x80});
    AnswerStatus(1, {0});
    Run();
    EXPECT_THAT(Records(), ElementsAre(RecordView{"I2C Bus", Below(kBus15Of1, kPass2), 5}));
}

TEST_F(SeveralControllers, PassThenBusFailed_StateIs5) {
    AnswerStatus(0, {0});
    AnswerStatus(1, {0, 0x80});
    Run();
    EXPECT_THAT(Records(), ElementsAre(RecordView{
                               "I2C Bus", Below(kPass1, "166-916-002 FAULT: Bus 15 failed."), 5}));
}

TEST_F(SeveralControllers, SendFailureThenPass_StateIs2) {
    LeaveUnanswered(0);
    AnswerStatus(1, {0});
    Run();
    EXPECT_THAT(Records(), ElementsAre(RecordView{"I2C Bus", Below(kNoAnswer1, kPass2), 2}));
}

TEST_F(SeveralControllers, PassThenSendFailure_StateIs6AndTextFollowsAtOnce) {
    AnswerStatus(0, {0});
    LeaveUnanswered(1);
    Run();
    EXPECT_THAT(Records(), ElementsAre(RecordView{"I2C Bus", std::string(kPass1) + kNoAnswer2, 6}));
}

TEST_F(SeveralControllers, BusFailedThenSendFailure_StateIs6) {
    AnswerStatus(0, {0, 0x80});
    LeaveUnanswered(1);
    Run();
    EXPECT_THAT(Records(),
                ElementsAre(RecordView{"I2C Bus", std::string(kBus15Of1) + kNoAnswer2, 6}));
}

TEST_F(SeveralControllers, BusFailedSendFailurePass_StateStays6) {
    FakeServiceProcessor::nodeCount = 3;
    AnswerStatus(0, {0, 0x80});
    LeaveUnanswered(1);
    AnswerStatus(2, {0});
    Run();
    EXPECT_THAT(Records(), ElementsAre(RecordView{"I2C Bus",
                                                  Below(std::string(kBus15Of1) + kNoAnswer2,
                                                        "166-000-003 PASS: All busses work."),
                                                  6}));
}

TEST_F(SeveralControllers, AllSendsFail_KeepsNoRecord) {
    Run();
    EXPECT_TRUE(Records().empty());
    EXPECT_THAT(NodesAsked(), ElementsAre(0, 1));
}

TEST_F(SeveralControllers, NoLibraryObjectForNode1_CountsAsSendFailure) {
    AnswerStatus(0, {0});
    FakeServiceProcessor::absent = {1};
    Run();
    EXPECT_THAT(Records(), ElementsAre(RecordView{"I2C Bus", std::string(kPass1) + kNoAnswer2, 6}));
    EXPECT_THAT(NodesAsked(), ElementsAre(0));
}

TEST_F(SeveralControllers, PassThenBadLength_TheRecordStandsTwice) {
    AnswerStatus(0, {0});
    FakeServiceProcessor::Script(1, kStatus, {.length = 0});
    Run();
    const RecordView expected{"I2C Bus",
                              std::string(kPass1) +
                                  "166-801-002 STOP: The answer is too short.\nRecommendations:\n\n"
                                  "Reset the controller.",
                              6};
    EXPECT_THAT(Records(), ElementsAre(expected, expected));
    EXPECT_EQ(Test().records[0], Test().records[1]);
}

TEST_F(SeveralControllers, PassThenBadCode_TheRecordStandsTwiceAndTheNextRunWorks) {
    AnswerStatus(0, {0});
    FakeServiceProcessor::Script(1, kStatus, {.completionCode = 0xC1});
    AnswerStatus(1, {0});
    Run();
    const RecordView expected{"I2C Bus", std::string(kPass1) + kCodeC1Of2, 6};
    EXPECT_THAT(Records(), ElementsAre(expected, expected));
    Run();
    EXPECT_THAT(Records(), ElementsAre(RecordView{"I2C Bus", Below(kPass1, kPass2), 2}));
}

TEST_F(SeveralControllers, BadCodeOnTheFirst_LaterOnesAreNotAsked) {
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xC1});
    AnswerStatus(1, {0});
    Run();
    EXPECT_THAT(Records(), ElementsAre(RecordView{"I2C Bus", "166-804-001 STOP: Code C1.", 6}));
    EXPECT_THAT(NodesAsked(), ElementsAre(0));
    EXPECT_EQ(Test().nodeCount, 1);
}

TEST_F(SeveralControllers, SendFailureThenBadCode_OneRecordHoldsBothTexts) {
    LeaveUnanswered(0);
    FakeServiceProcessor::Script(1, kStatus, {.completionCode = 0xC1});
    Run();
    EXPECT_THAT(Records(),
                ElementsAre(RecordView{"I2C Bus", std::string(kNoAnswer1) + kCodeC1Of2, 6}));
}

TEST_F(SeveralControllers, PassThenTransportThrows_TheRecordSoFarStays) {
    AnswerStatus(0, {0});
    AnswerStatus(1, {0});
    FakeServiceProcessor::onRequest = [] {
        if (FakeServiceProcessor::Requests().size() == 1) {
            throw std::runtime_error("the line is cut");
        }
    };
    EXPECT_THROW(Run(), std::runtime_error);
    EXPECT_THAT(Records(), ElementsAre(RecordView{"I2C Bus", kPass1, 2}));
}

TEST_F(SeveralControllers, EachResponse_HasItsDumpInTheRecord) {
    AnswerStatus(0, {0});
    AnswerStatus(1, {0, 0});
    Run();
    ASSERT_EQ(OnlyRecord().ResponseLog.size(), 2u);
    EXPECT_STREQ(OnlyRecord().ResponseLog[1].c_str(),
                 "Response length is : 3 Including completion code, received response data is : "
                 "01 20 3a 00 09 00 00 00 00 00 00 00 ");
    EXPECT_EQ(OnlyRecord().ResponseLength, 3);
}

TEST_F(SeveralControllers, Oxc_GenerationIsAskedOfNode0ForEachController) {
    FakeServiceProcessor::isOxc = true;
    AnswerStatus(0, {0});
    AnswerStatus(1, {0, 0xFF});
    AnswerGeneration({0, 1});
    Run();
    EXPECT_THAT(NodesAsked(), ElementsAre(0, 0, 1, 0));
    EXPECT_EQ(OnlyRecord().CompletionState, 2);
}

TEST_F(SeveralControllers, LaterRun_MessageBeforeTheFirstController_CarriesTheOldNumber) {
    AnswerStatus(0, {0});
    AnswerStatus(1, {0});
    Run();
    SetMachine("", "7000");
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xC1});
    Run();
    EXPECT_EQ(Records().at(0).text, "166-102-002 STOP: The machine type is empty.");
    EXPECT_EQ(Records().at(1).text, "166-804-001 STOP: Code C1.");
}
