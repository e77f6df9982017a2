#include <cli/ExitCodes.h>
#include <gtest/gtest.h>

#include "Records.h"

namespace cli {
namespace {

TEST(Verdict, RecordWithState2_IsPassed) {
    EXPECT_EQ(Judge(RunWith({Record(2, "166-000-001 Pass")})), Verdict::Passed);
}

TEST(Verdict, RecordWithState5_IsFailed) {
    EXPECT_EQ(Judge(RunWith({Record(5, "166-901-001 Bus 0")})), Verdict::Failed);
}

TEST(Verdict, State5AmongOthers_IsFailedBeforeNotCompleted) {
    EXPECT_EQ(Judge(RunWith({Record(6, "166-899-001 x"), Record(5, "166-901-001 Bus 0")})),
              Verdict::Failed);
}

TEST(Verdict, NoRecord_IsNotCompleted) { EXPECT_EQ(Judge(RunWith({})), Verdict::NotCompleted); }

TEST(Verdict, RecordWithState6_IsNotCompleted) {
    EXPECT_EQ(Judge(RunWith({Record(6, "166-801-001 Short")})), Verdict::NotCompleted);
}

TEST(Verdict, SilentControllerHiddenByAPass_IsNotCompleted) {
    EXPECT_EQ(Judge(RunWith({Record(2, "166-802-001 Silent\n166-000-002 Pass")})),
              Verdict::NotCompleted);
}

TEST(Verdict, SilentControllerInTheMiddleOfALine_IsNotCompleted) {
    const auto run = RunWith({Record(2, "166-000-001 Pass166-802-002 Silent\n166-000-003 Pass")});
    EXPECT_EQ(Judge(run), Verdict::NotCompleted);
}

TEST(Verdict, MessagesFrom801To824_AreNotCompleted) {
    for (int number = 799; number <= 826; ++number) {
        const auto run =
            RunWith({Record(2, "166-" + std::to_string(number) + "-001 x\n166-000-002 Pass")});
        const bool isUnjudged = number >= 801 && number <= 824;
        EXPECT_EQ(Judge(run), isUnjudged ? Verdict::NotCompleted : Verdict::Passed) << number;
    }
}

TEST(Verdict, RunWithAProblem_HasNoOutcome) {
    DiagnosticRun run = RunWith({Record(2, "166-000-001 Pass")});
    run.problem = "The call failed.";
    EXPECT_EQ(Judge(run), Verdict::NoOutcome);
}

TEST(Verdict, Texts_AreThoseThatScriptsRead) {
    EXPECT_EQ(VerdictText(Verdict::Passed), "passed");
    EXPECT_EQ(VerdictText(Verdict::Failed), "failed");
    EXPECT_EQ(VerdictText(Verdict::NotCompleted), "not completed");
    EXPECT_EQ(VerdictText(Verdict::NoOutcome), "error");
}

TEST(Verdict, ExitCodes_AreThoseThatScriptsRead) {
    EXPECT_EQ(ExitCodeOf(Verdict::Passed), 0);
    EXPECT_EQ(ExitCodeOf(Verdict::Failed), 1);
    EXPECT_EQ(ExitCodeOf(Verdict::NotCompleted), 2);
    EXPECT_EQ(ExitCodeOf(Verdict::NoOutcome), 3);
    EXPECT_EQ(kWrongUsage, 64);
}

}  // namespace
}  // namespace cli
