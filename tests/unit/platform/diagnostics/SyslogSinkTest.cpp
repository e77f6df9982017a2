#include <gmock/gmock.h>
#include <platform/diagnostics/LineFormat.h>
#include <platform/diagnostics/SyslogSink.h>
#include <spdlog/logger.h>
#include <unistd.h>

#include "SyslogServer.h"
#include "TemporaryFolder.h"

namespace {

class SyslogSinkTest : public testing::Test {
protected:
    SyslogSinkTest() : logger("test", std::make_shared<NQUVZDX20::SyslogSink>()) {
        replacedSyslogSocket = socket;
        logger.set_level(spdlog::level::trace);
    }
    ~SyslogSinkTest() override { replacedSyslogSocket = "/nonexistent/log"; }

    void Log(int severity, const std::string& text) {
        logger.log(NQUVZDX20::LevelOf(severity), text);
    }

    const TemporaryFolder folder;
    const std::string socket = folder.File("log");
    spdlog::logger logger;
};

TEST_F(SyslogSinkTest, Line_CarriesDateNameAndProcess) {
    const SyslogServer server(socket);
    Log(2, "some text");
    EXPECT_THAT(server.Next().value(),
                testing::MatchesRegex("<27>(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) "
                                      "[0-3][0-9] [0-2][0-9]:[0-5][0-9]:[0-6][0-9] bmci2c\\[" +
                                      std::to_string(::getpid()) + "\\]: some text"));
}

TEST_F(SyslogSinkTest, Severities_BecomeSyslogsPriorities) {
    const SyslogServer server(socket);
    const char* const priorities[] = {"<26>", "<28>", "<27>", "<30>", "<31>"};
    for (int severity = 0; severity < 5; ++severity) {
        Log(severity, "text");
        EXPECT_THAT(server.Next().value(), testing::StartsWith(priorities[severity]));
    }
}

TEST_F(SyslogSinkTest, TextOfSeveralLines_IsOneDatagramAsItStands) {
    const SyslogServer server(socket);
    Log(2, "one\ntwo\t\x1b");
    EXPECT_EQ(server.NextText(), "one\ntwo\t\x1b");
    EXPECT_EQ(server.NextText(), std::nullopt);
}

TEST_F(SyslogSinkTest, NoSyslog_LosesTheLineOnly) {
    Log(0, "lost");
    const SyslogServer server(socket);
    Log(0, "kept");
    EXPECT_EQ(server.NextText(), "kept");
    EXPECT_EQ(server.NextText(), std::nullopt);
}

TEST_F(SyslogSinkTest, RestartedSyslog_IsFoundAgain) {
    {
        const SyslogServer server(socket);
        Log(0, "before");
        EXPECT_EQ(server.NextText(), "before");
    }
    Log(0, "between");
    const SyslogServer server(socket);
    Log(0, "after");
    EXPECT_EQ(server.NextText(), "after");
}

TEST_F(SyslogSinkTest, SyslogThatTakesNothing_DoesNotHoldUpTheCaller) {
    const SyslogServer server(socket);
    // Far more than a socket holds: were each line to wait, this test would run into its time-out.
    constexpr int kLines = 20000;
    for (int line = 0; line < kLines; ++line) Log(2, "line");
    int taken = 0;
    while (server.Next()) ++taken;
    EXPECT_GT(taken, 0);
    EXPECT_LT(taken, kLines);
    Log(2, "afterwards");
    EXPECT_EQ(server.NextText(), "afterwards");
}

}  // namespace
