#include <cli/report/RunReport.h>
#include <gmock/gmock.h>

#include "Results.h"

namespace cli {
namespace {

using testing::HasSubstr;
using testing::Not;

const Terminal kPlain;

RunReport ReportOf(RunResult result) {
    RunReport report;
    report.session.executable = "/opt/bin/bmci2c";
    report.result = std::move(result);
    return report;
}

std::string TextOf(RunResult result, const Terminal& terminal = kPlain) {
    return RunText(ReportOf(std::move(result)), terminal);
}

TEST(RunReport, Text_ShowsEverySection) {
    RunResult result = ResultOf({Examined(0, {kGood}), Examined(1, {kFailed}), Silent(2)});
    result.controllers[2].message = {"166-802-003 STOP: no answer", {"Call support."}};
    EXPECT_EQ(TextOf(result),
              "FAILED: 1 bus has failed: bus 0 of node 1. Node 2 was not examined.\n"
              "Duration 0.4 s\n"
              "\n"
              "Machine\n"
              "  Machine type     7000\n"
              "  BIOS identifier  P7E100A\n"
              "\n"
              "Management controllers\n"
              "  node 0  inband /dev/ipmi0\n"
              "  node 1  inband /dev/ipmi1\n"
              "  node 2  inband /dev/ipmi2\n"
              "\n"
              "I2C busses of each controller\n"
              "  bus      0\n"
              "  node 0   .\n"
              "  node 1   X\n"
              "  node 2  not examined: no answer\n"
              "\n"
              "  .  good     X  failed\n"
              "\n"
              "What the test recorded\n"
              "  166-000-001 PASS: all good\n"
              "  166-901-002 FAIL: bus 0\n"
              "    Recommendations:\n"
              "    - Check the cables.\n"
              "    - Call support.\n"
              "  166-802-003 STOP: no answer\n"
              "    Recommendations:\n"
              "    - Call support.\n"
              "  (166, then the message number - 901 is bus 0 - and which controller was asked:\n"
              "  001 is node 0.)\n"
              "\n"
              "What was not examined, and why\n"
              "  Node 2 (inband /dev/ipmi2): The controller did not answer.\n"
              "\n"
              "What to do next\n"
              "  Follow the recommendations above for each failed bus, then run the test again.\n"
              "  Node 2 (inband /dev/ipmi2): Restart it.\n");
}

TEST(RunReport, PassedRun_HasNothingThatWasNotExamined) {
    const std::string text = TextOf(ResultOf({Examined(0, {kGood})}));
    EXPECT_THAT(text, Not(HasSubstr("not examined")));
    EXPECT_THAT(text, Not(HasSubstr("Notes")));
}

TEST(RunReport, TroubleOfAWholeRun_IsANote) {
    RunResult result = ResultOf({Examined(0, {kGood})});
    result.troubles = {{"catalog_syntax", "The catalog is wrong in line 7.", "Fix it."}};
    EXPECT_THAT(TextOf(result), HasSubstr("\nNotes\n  The catalog is wrong in line 7.\n"));
}

TEST(RunReport, MessagesOfTheRun_ComeFirst) {
    RunResult result = ResultOf({NotAsked(0)});
    result.machine.supported = false;
    result.messages = {{"", {}}, {"166-899-001 Aborted", {}}};
    EXPECT_THAT(TextOf(result), HasSubstr("\nWhat the test recorded\n  166-899-001 Aborted\n"));
}

TEST(RunReport, RunWithoutMessages_RecordedNothing) {
    const std::string text = TextOf(ResultOf({}));
    EXPECT_THAT(text, HasSubstr("\nManagement controllers\n  none found\n"));
    EXPECT_THAT(text, HasSubstr("\nWhat the test recorded\n  nothing\n"));
    EXPECT_THAT(text, Not(HasSubstr("I2C busses of each")));
}

TEST(RunReport, UnreadableMachine_IsUnknown) {
    RunResult result = ResultOf({});
    result.machine.type.clear();
    result.machine.biosId.clear();
    EXPECT_THAT(TextOf(result),
                HasSubstr("  Machine type     (unknown)\n  BIOS identifier  (unknown)\n"));
}

TEST(RunReport, ControlCharacters_NeverReachTheTerminal) {
    RunResult result = ResultOf({Silent(0), Examined(1, {kFailed})});
    const std::string evil = "\033[2Jx\a\xFF";
    result.machine.type = evil;
    result.machine.biosId = evil;
    result.controllers[0].address = evil;
    result.controllers[0].trouble = {"other", evil, evil};
    result.controllers[0].message = {evil, {evil}};
    result.controllers[1].failedBusses[0].message = {evil, {evil}};
    result.messages = {{evil, {evil}}};
    result.troubles = {{"other", evil, evil}};
    RunReport report = ReportOf(result);
    report.session.settings.profileFile.value = evil;
    const std::string text = RunText(report, kPlain);
    EXPECT_THAT(text, Not(HasSubstr("\033")));
    EXPECT_THAT(text, Not(HasSubstr("\a")));
    EXPECT_THAT(text, Not(HasSubstr("\xFF")));
    EXPECT_THAT(text, HasSubstr("  Machine type     \\x1b[2Jx\\x07\\xff\n"));
    EXPECT_THAT(text, HasSubstr("  node 0  \\x1b[2Jx\\x07\\xff\n"));
}

TEST(RunReport, LineFeedInAOneLineText_IsEscaped) {
    RunResult result = ResultOf({});
    result.machine.type = "a\nPASSED";
    EXPECT_THAT(TextOf(result), HasSubstr("  Machine type     a\\x0aPASSED\n"));
}

TEST(RunReport, Duration_IsRoundedToTenths) {
    RunResult result = ResultOf({});
    for (const auto& [time, text] :
         {std::pair(0, "0.0 s"), std::pair(49, "0.0 s"), std::pair(50, "0.1 s"),
          std::pair(12'345, "12.3 s"), std::pair(59'960, "60.0 s")}) {
        result.elapsed = std::chrono::milliseconds(time);
        EXPECT_THAT(TextOf(result), HasSubstr(std::string("\nDuration ") + text + "\n"));
    }
}

TEST(RunReport, NarrowTerminal_WrapsParagraphs) {
    RunResult result = ResultOf({Silent(0), Examined(1, {kFailed})});
    const std::string text = TextOf(result, {.hasColour = false, .width = 40});
    std::istringstream lines(text.substr(text.find('\n')));
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 40u) << line;
}

TEST(RunReport, SimulatedMachine_ShowsTheCommandForTheRealOne) {
    RunResult result = ResultOf({});
    result.machine.simulated = true;
    RunReport report = ReportOf(result);
    report.session.settings.profileFile = {"/p.toml", platform::Origin::Environment};
    const std::string text = RunText(report, kPlain);
    EXPECT_THAT(text, HasSubstr("  Simulated by     /p.toml\n"));
    EXPECT_THAT(text, HasSubstr("\nThe same test on this machine's own controllers\n"));
}

TEST(RunReport, RealMachine_DoesNotSpeakOfSimulation) {
    EXPECT_THAT(TextOf(ResultOf({})), Not(HasSubstr("imulat")));
    EXPECT_THAT(TextOf(ResultOf({})), Not(HasSubstr("own controllers")));
}

TEST(RunReport, Headline_HasTheColourOfItsVerdict) {
    const Terminal colour{.hasColour = true, .width = 80};
    const auto headline = [&](RunResult result) {
        return HeadlineText(ReportOf(std::move(result)), colour);
    };
    EXPECT_THAT(headline(ResultOf({Examined(0, {kGood})})), testing::StartsWith("\033[1;32mPASS"));
    EXPECT_THAT(headline(ResultOf({Examined(0, {kFailed})})),
                testing::StartsWith("\033[1;31mFAIL"));
    EXPECT_THAT(headline(ResultOf({})), testing::StartsWith("\033[1;33mNOT"));
    EXPECT_THAT(headline(Interrupted(ResultOf({}))), testing::StartsWith("\033[1;33mINT"));
}

}  // namespace
}  // namespace cli
