#include <gmock/gmock.h>
#include <platform/diagnostics/SettingsInForce.h>

#include "RecordingLogger.h"
#include "ReplacedSettings.h"

namespace {

using platform::SettingsInForce;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class SettingsInForceTest : public testing::Test {
protected:
    SettingsInForceTest() { StartWithoutProblem(); }
    ~SettingsInForceTest() override { StartWithoutProblem(); }

    void StartWithoutProblem() {
        replacedSettings = {};
        SettingsInForce();
        recordedLines.clear();
    }
};

TEST_F(SettingsInForceTest, ReadableSettings_AreGivenWithoutAWord) {
    replacedSettings.timeLimit.value = 7;
    EXPECT_EQ(SettingsInForce()->timeLimit.value, 7);
    EXPECT_THAT(recordedLines, IsEmpty());
}

TEST_F(SettingsInForceTest, Problem_IsLoggedOnceAtSeverity0) {
    replacedSettings.problem = "platform.toml:1:1: broken.";
    EXPECT_EQ(SettingsInForce()->problem, "platform.toml:1:1: broken.");
    SettingsInForce();
    EXPECT_THAT(recordedLines, ElementsAre(Pair(0, "Settings: platform.toml:1:1: broken.")));
}

TEST_F(SettingsInForceTest, NewProblem_IsLoggedAgain) {
    replacedSettings.problem = "one";
    SettingsInForce();
    replacedSettings.problem = "two";
    SettingsInForce();
    EXPECT_THAT(recordedLines, ElementsAre(Pair(0, "Settings: one"), Pair(0, "Settings: two")));
}

TEST_F(SettingsInForceTest, ProblemThatComesBackAfterMending_IsLoggedAgain) {
    for (const char* problem : {"one", "", "one"}) {
        replacedSettings.problem = problem;
        SettingsInForce();
    }
    EXPECT_THAT(recordedLines, ElementsAre(Pair(0, "Settings: one"), Pair(0, "Settings: one")));
}

}  // namespace
