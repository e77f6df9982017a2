#include <cli/report/Headline.h>
#include <gtest/gtest.h>

#include "Results.h"

namespace cli {
namespace {

std::string HeadlineOf(std::vector<ControllerResult> controllers) {
    return Headline(ResultOf(std::move(controllers)));
}

TEST(Headline, Passed_CountsBussesAndControllers) {
    EXPECT_EQ(HeadlineOf({Examined(0, {kGood, kGood}), Examined(1, {kGood})}),
              "PASSED: all 3 busses of 2 controllers are good.");
}

TEST(Headline, ControllerThatWasExaminedInPart_IsNotCompleted) {
    const auto cut = WithTrouble(Examined(0, {kGood}), "answer_cut", "The answer was cut.", "");
    EXPECT_EQ(HeadlineOf({cut}), "NOT COMPLETED: node 0 was not examined in full.");
    EXPECT_EQ(HeadlineOf({Examined(0, {}), Examined(1, {})}),
              "NOT COMPLETED: nodes 0 and 1 were not examined in full.");
    const auto failed =
        WithTrouble(Examined(0, {kFailed}), "answer_cut", "The answer was cut.", "");
    EXPECT_EQ(HeadlineOf({failed}),
              "FAILED: 1 bus has failed: bus 0 of node 0. Node 0 was not examined in full.");
}

TEST(Headline, Failed_NamesTheBusses) {
    EXPECT_EQ(HeadlineOf({Examined(0, {kGood}), Examined(1, {kGood, kGood, kFailed})}),
              "FAILED: 1 bus has failed: bus 2 of node 1.");
    EXPECT_EQ(HeadlineOf({Examined(0, {kFailed}), Examined(1, {kGood, kFailed})}),
              "FAILED: 2 busses have failed: bus 0 of node 0 and bus 1 of node 1.");
}

TEST(Headline, ManyFailedBusses_AreCountedOnly) {
    EXPECT_EQ(HeadlineOf({Examined(0, std::vector(7, std::optional(kFailed)))}),
              "FAILED: 7 busses have failed.");
}

TEST(Headline, SixFailedBusses_AreNamed) {
    EXPECT_EQ(
        HeadlineOf({Examined(0, std::vector(6, std::optional(kFailed)))}),
        "FAILED: 6 busses have failed: bus 0 of node 0, bus 1 of node 0, bus 2 of node 0, bus "
        "3 of node 0, bus 4 of node 0 and bus 5 of node 0.");
}

TEST(Headline, FailedBusAndADeadController_InEitherOrder) {
    EXPECT_EQ(HeadlineOf({Silent(0), Examined(1, {kGood, kGood, kFailed})}),
              "FAILED: 1 bus has failed: bus 2 of node 1. Node 0 was not examined.");
    EXPECT_EQ(HeadlineOf({Examined(0, {kFailed}), Silent(1)}),
              "FAILED: 1 bus has failed: bus 0 of node 0. Node 1 was not examined.");
}

TEST(Headline, FailedBusBeforeARefusingOrAShortAnswer_IsNotHidden) {
    EXPECT_EQ(HeadlineOf({Examined(0, {kFailed}), Refusing(1), NotAsked(2)}),
              "FAILED: 1 bus has failed: bus 0 of node 0. Nodes 1 and 2 were not examined.");
    EXPECT_EQ(HeadlineOf({Examined(0, {kFailed}), Short(1)}),
              "FAILED: 1 bus has failed: bus 0 of node 0. Node 1 was not examined.");
}

TEST(Headline, FailedBusAfterARefusingOrAShortAnswer_IsNotHidden) {
    EXPECT_EQ(HeadlineOf({Refusing(0), Examined(1, {kFailed})}),
              "FAILED: 1 bus has failed: bus 0 of node 1. Node 0 was not examined.");
    EXPECT_EQ(HeadlineOf({Short(0), Examined(1, {kFailed})}),
              "FAILED: 1 bus has failed: bus 0 of node 1. Node 0 was not examined.");
}

TEST(Headline, NotCompleted_NamesTheNodes) {
    EXPECT_EQ(HeadlineOf({Examined(0, {kGood}), Silent(1)}),
              "NOT COMPLETED: node 1 was not examined.");
    EXPECT_EQ(HeadlineOf({Refusing(0), NotAsked(1), NotAsked(2)}),
              "NOT COMPLETED: nodes 0, 1 and 2 were not examined.");
}

TEST(Headline, UnjudgedBusses_AreNotGood) {
    EXPECT_EQ(HeadlineOf({Examined(0, {kGood, kUnjudged})}),
              "NOT COMPLETED: bus 1 of node 0 was not judged.");
    EXPECT_EQ(HeadlineOf({Examined(0, {kUnjudged, kUnjudged}), Silent(1)}),
              "NOT COMPLETED: node 1 was not examined. Busses 0 and 1 of node 0 were not judged.");
    EXPECT_EQ(HeadlineOf({Examined(0, {kFailed, kUnjudged})}),
              "FAILED: 1 bus has failed: bus 0 of node 0. Bus 1 of node 0 was not judged.");
}

TEST(Headline, NoController_SaysSo) {
    EXPECT_EQ(HeadlineOf({}), "NOT COMPLETED: no management controller was found.");
}

RunResult UnsupportedWith(const std::string& code) {
    RunResult result = ResultOf({NotAsked(0)});
    result.machine.supported = false;
    result.troubles = {{code, "Text.", ""}};
    return result;
}

TEST(Headline, UnsupportedMachine_TellsWhichReason) {
    EXPECT_EQ(Headline(UnsupportedWith("machine_not_listed")),
              "NOT COMPLETED: the message catalog does not list this machine, so no controller was "
              "asked.");
    EXPECT_EQ(Headline(UnsupportedWith("machine_unknown")),
              "NOT COMPLETED: the machine type is not known, so no controller was asked.");
    for (const char* code : {"catalog_missing", "catalog_unreadable", "catalog_syntax"})
        EXPECT_EQ(Headline(UnsupportedWith(code)),
                  "NOT COMPLETED: there is no usable message catalog, so no controller was asked.");
}

TEST(Headline, Interrupted_TellsWhatIsKnown) {
    EXPECT_EQ(Headline(Interrupted(ResultOf({Examined(0, {kFailed}), NotAsked(1)}))),
              "INTERRUPTED: 1 bus has failed: bus 0 of node 0. Node 1 was not examined.");
    EXPECT_EQ(Headline(Interrupted(ResultOf({Examined(0, {kGood}), NotAsked(1), NotAsked(2)}))),
              "INTERRUPTED: no bus has failed so far. Nodes 1 and 2 were not examined.");
    EXPECT_EQ(Headline(Interrupted(ResultOf({NotAsked(0)}))),
              "INTERRUPTED: no controller was asked.");
    EXPECT_EQ(Headline(Interrupted(ResultOf({}))), "INTERRUPTED: no controller was asked.");
}

TEST(Headline, SimulatedMachine_IsNamedInEachVerdict) {
    RunResult result = ResultOf({Examined(0, {kGood})});
    result.machine.simulated = true;
    EXPECT_EQ(Headline(result), "PASSED (simulated machine): the only bus is good.");
    result = ResultOf({Examined(0, {kFailed})});
    result.machine.simulated = true;
    EXPECT_EQ(Headline(result), "FAILED (simulated machine): 1 bus has failed: bus 0 of node 0.");
    result = ResultOf({Silent(0)});
    result.machine.simulated = true;
    EXPECT_EQ(Headline(result), "NOT COMPLETED (simulated machine): node 0 was not examined.");
    result = Interrupted(result);
    EXPECT_EQ(
        Headline(result),
        "INTERRUPTED (simulated machine): no bus has failed so far. Node 0 was not examined.");
}

}  // namespace
}  // namespace cli
