#include <cli/report/NextSteps.h>
#include <cli/report/Reasons.h>
#include <gmock/gmock.h>

#include "Results.h"

namespace cli {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kFollow =
    "Follow the recommendations above for each failed bus, then run the test again.";

TEST(NextSteps, Passed_NeedsNothing) {
    EXPECT_THAT(NextSteps(ResultOf({Examined(0, {kGood})})),
                ElementsAre("Nothing needs to be done."));
}

TEST(NextSteps, FailedBus_PointsToItsRecommendations) {
    EXPECT_THAT(NextSteps(ResultOf({Examined(0, {kFailed})})), ElementsAre(kFollow));
}

TEST(NextSteps, FailedBusWithoutRecommendations_DoesNotPointToThem) {
    ControllerResult controller = Examined(0, {kFailed});
    controller.failedBusses.front().message.recommendations.clear();
    EXPECT_THAT(NextSteps(ResultOf({controller})),
                ElementsAre("Have each failed bus repaired, then run the test again."));
}

TEST(NextSteps, FailedBusAndASilentController_AreBothTakenCareOf) {
    const char* const ofNode0 = "Node 0 (inband /dev/ipmi0): Restart it.";
    EXPECT_THAT(NextSteps(ResultOf({Silent(0), Examined(1, {kFailed})})),
                ElementsAre(kFollow, ofNode0));
    EXPECT_THAT(NextSteps(ResultOf({Examined(0, {kFailed}), Short(1)})),
                ElementsAre(kFollow, "Node 1 (inband /dev/ipmi1): Update its firmware."));
}

TEST(NextSteps, NeighboursWithTheSameAdvice_ShareAStep) {
    EXPECT_THAT(NextSteps(ResultOf({Silent(0), Silent(1), Examined(2, {kGood})})),
                ElementsAre("Node 0 (inband /dev/ipmi0) and node 1 (inband /dev/ipmi1): Restart "
                            "it."));
}

TEST(NextSteps, ControllerWithoutAdvice_IsToBeLookedInto) {
    EXPECT_THAT(NextSteps(ResultOf({Refusing(0)})),
                ElementsAre("Node 0 (inband /dev/ipmi0): Find out why it was not examined in full, "
                            "then run the test again."));
}

TEST(NextSteps, ControllerWithRecommendationsOnly_PointsToThem) {
    ControllerResult controller = Refusing(0);
    controller.message = {"166-804-001 STOP", {"Call support."}};
    EXPECT_THAT(NextSteps(ResultOf({controller})),
                ElementsAre("Node 0 (inband /dev/ipmi0): Follow its recommendations above, then "
                            "run the test again."));
}

TEST(NextSteps, TroublesOfTheRun_ComeBeforeThoseOfControllers) {
    RunResult result = ResultOf({Silent(0)});
    result.troubles = {{"catalog_syntax", "The catalog is wrong.", "Fix it."},
                       {"other", "Nothing helps.", ""}};
    EXPECT_THAT(NextSteps(result),
                ElementsAre("Fix it.", "Node 0 (inband /dev/ipmi0): Restart it."));
}

TEST(NextSteps, PassedRunWithATrouble_TellsWhatHelps) {
    RunResult result = ResultOf({Examined(0, {kGood})});
    result.troubles = {{"catalog_syntax", "The catalog is wrong.", "Fix it."}};
    EXPECT_THAT(NextSteps(result), ElementsAre("Fix it."));
}

TEST(NextSteps, RunWithoutAnyAdvice_IsRepeated) {
    EXPECT_THAT(NextSteps(Interrupted(ResultOf({NotAsked(0)}))),
                ElementsAre("Run the test again."));
}

TEST(Reasons, WholeRun_HasNone) {
    EXPECT_THAT(Reasons(ResultOf({Examined(0, {kGood, kFailed})}), false), IsEmpty());
}

TEST(Reasons, EveryTrouble_IsToldInNodeOrder) {
    RunResult result = ResultOf({Silent(0), Examined(1, {kGood}), Short(2), NotAsked(3)});
    result.troubles = {{"catalog_syntax", "The catalog is wrong.", "Fix it."}};
    EXPECT_THAT(
        Reasons(result, false),
        ElementsAre("The catalog is wrong.",
                    "Node 0 (inband /dev/ipmi0): The controller did not answer.",
                    "Node 2 (inband /dev/ipmi2): The controller's answer was too short (length 1).",
                    "Node 3 (inband /dev/ipmi3): It was not asked."));
}

TEST(Reasons, NeighboursWithTheSameReason_ShareAParagraph) {
    EXPECT_THAT(Reasons(ResultOf({NotAsked(0), NotAsked(1), NotAsked(2)}), false),
                ElementsAre("Node 0 (inband /dev/ipmi0), node 1 (inband /dev/ipmi1) and node 2 "
                            "(inband /dev/ipmi2): It was not asked."));
}

TEST(Reasons, UnjudgedBusses_AreNamedWithTheirReason) {
    const auto unknown = WithTrouble(Examined(0, {kGood, kUnjudged, kUnjudged}),
                                     "generation_unknown", "The generation is not known.", "");
    EXPECT_THAT(Reasons(ResultOf({unknown}), false),
                ElementsAre("Node 0 (inband /dev/ipmi0): Busses 1 and 2 were not judged. The "
                            "generation is not known."));
    const auto one = WithTrouble(Examined(0, {kUnjudged}), "x", "Text.", "");
    EXPECT_THAT(Reasons(ResultOf({one}), false),
                ElementsAre("Node 0 (inband /dev/ipmi0): Bus 0 was not judged. Text."));
}

TEST(Reasons, ControllerWithoutABus_IsToldOf) {
    const RunResult result = ResultOf({Examined(0, {})});
    EXPECT_THAT(Reasons(result, false),
                ElementsAre("Node 0 (inband /dev/ipmi0): It reports no bus."));
    EXPECT_THAT(NextSteps(result),
                ElementsAre("Node 0 (inband /dev/ipmi0): Find out why it was not examined in full, "
                            "then run the test again."));
}

TEST(Reasons, UnusedByte_IsTold) {
    ControllerResult controller = Examined(0, {kGood});
    controller.hasUnusedByte = true;
    EXPECT_THAT(Reasons(ResultOf({controller}), false),
                ElementsAre("Node 0 (inband /dev/ipmi0): The second status byte stands for no bus "
                            "and was not examined."));
}

TEST(Reasons, RunThatWentOn_TellsWhereThatOfACimClientEnds) {
    RunResult result = ResultOf({Refusing(0), Examined(1, {kGood})});
    result.endOfRecord = 0;
    EXPECT_THAT(Reasons(result, true),
                ElementsAre("Node 0 (inband /dev/ipmi0): The controller refused the request with "
                            "completion code 0xc1.",
                            "A CIM client's run would have ended at node 0: its record tells "
                            "nothing of later controllers."));
}

TEST(Reasons, ControllerWithoutATrouble_HasThatOfItsOutcome) {
    EXPECT_THAT(Reasons(ResultOf({ControllerWith(0, Outcome::NotDelivered),
                                  ControllerWith(1, Outcome::UnusableAnswer),
                                  ControllerWith(2, Outcome::Refused),
                                  ControllerWith(3, Outcome::NotAsked)}),
                        false),
                ElementsAre("Node 0 (inband /dev/ipmi0): No answer came.",
                            "Node 1 (inband /dev/ipmi1): The answer is too short.",
                            "Node 2 (inband /dev/ipmi2): It refused the request.",
                            "Node 3 (inband /dev/ipmi3): It was not asked."));
}

}  // namespace
}  // namespace cli
