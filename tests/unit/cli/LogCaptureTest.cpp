#include <cli/LogCapture.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

namespace cli {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kVariable = "BMCI2C_LOG_CAPTURE";

TEST(LogCapture, LinesThatAreAppended_AreRead) {
    const LogCapture capture;
    std::ofstream(std::getenv(kVariable), std::ios::app)
        << R"({"severity":2,"text":"one"})" << '\n';
    std::ofstream(std::getenv(kVariable), std::ios::app)
        << R"({"severity":3,"text":"two"})" << '\n';
    const auto lines = capture.Lines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].severity, 2);
    EXPECT_EQ(lines[0].text, "one");
    EXPECT_EQ(lines[1].text, "two");
    EXPECT_EQ(capture.Lines().size(), 2U);
}

TEST(LogCapture, AtItsEnd_LeavesTheEnvironmentAsItWas) {
    { const LogCapture capture; }
    EXPECT_EQ(std::getenv(kVariable), nullptr);
}

TEST(LogCapture, VariableThatIsSetAlready_IsLeftAlone) {
    ::setenv(kVariable, "/somewhere", 1);
    {
        const LogCapture capture;
        EXPECT_STREQ(std::getenv(kVariable), "/somewhere");
        EXPECT_THAT(capture.Lines(), IsEmpty());
    }
    EXPECT_STREQ(std::getenv(kVariable), "/somewhere");
    ::unsetenv(kVariable);
}

TEST(LogLines, WhatIsNoLogLine_IsPassedOver) {
    const auto lines = ReadLogLines(
        "nothing\n[1]\n{}\n{\"severity\":\"x\",\"text\":\"a\"}\n{\"severity\":1,\"text\":2}\n"
        "{\"severity\":1,\"text\":\"good\"}");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].text, "good");
}

TEST(Troubles, PlatformLinesUpToSeverity2_AreKeptOnce) {
    EXPECT_THAT(Troubles({{2, "SP: node 0: no answer"},
                          {4, "SP: node 1: fine"},
                          {3, "SP: trace"},
                          {2, "BMCI2C: Fail to read BiosID!"},
                          {0, "Settings: broken"},
                          {2, "DMI: unreadable"},
                          {2, "SP: node 0: no answer"}}),
                ElementsAre("SP: node 0: no answer", "Settings: broken", "DMI: unreadable"));
}

}  // namespace
}  // namespace cli
