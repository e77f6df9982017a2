#include <gmock/gmock.h>
#include <platform/diagnostics/CoreLogger.h>
#include <platform/diagnostics/LogNode.h>
#include <spdlog/spdlog.h>
#include <unistd.h>

#include <filesystem>
#include <iterator>
#include <nlohmann/json.hpp>
#include <thread>

#include "JsonLines.h"
#include "ReplacedSettings.h"
#include "SyslogServer.h"
#include "TemporaryFolder.h"

namespace {

using NQUVZDX20::CoreLogger;
using NQUVZDX20::EZDXLogSeverity;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class CoreLoggerTest : public testing::Test {
protected:
    CoreLoggerTest() {
        replacedSettings = {};
        replacedSyslogSocket = folder.File("log");
    }
    ~CoreLoggerTest() override {
        replacedSettings = {};
        replacedSyslogSocket = "/nonexistent/log";
    }

    void UseSink(const std::string& sink, int level = 4) {
        replacedSettings.log.value = sink;
        replacedSettings.logLevel.value = level;
    }

    void Log(int severity, const std::string& text) {
        logger.Log(static_cast<EZDXLogSeverity>(severity), text);
    }

    void LogEachSeverity() {
        for (int severity = 0; severity < 5; ++severity) Log(severity, std::to_string(severity));
    }

    std::vector<std::string> Lines() const { return LinesOf(file); }
    std::vector<std::string> JsonLines() const { return JsonLinesOf(file); }

    const TemporaryFolder folder;
    const std::string file = folder.File("file");
    CoreLogger logger;
};

TEST_F(CoreLoggerTest, Json_IsOneObjectPerLineInOrder) {
    UseSink("json:" + file);
    Log(3, "BMCI2C: first");
    Log(2, "BMCI2C: second");
    Log(0, "");
    EXPECT_THAT(JsonLines(), ElementsAre(R"({"severity":3,"text":"BMCI2C: first"})",
                                         R"({"severity":2,"text":"BMCI2C: second"})",
                                         R"({"severity":0,"text":""})"));
}

TEST_F(CoreLoggerTest, Json_TellsTheNodeThatItsThreadLogsAbout) {
    UseSink("json:" + file);
    Log(3, "before");
    {
        const NQUVZDX20::LogNode node(0);
        Log(2, "within");
        std::thread([this] { Log(2, "elsewhere"); }).join();
    }
    Log(3, "after");
    EXPECT_THAT(JsonLines(), ElementsAre(R"({"severity":3,"text":"before"})",
                                         R"({"severity":2,"node":0,"text":"within"})",
                                         R"({"severity":2,"text":"elsewhere"})",
                                         R"({"severity":3,"text":"after"})"));
}

TEST_F(CoreLoggerTest, Json_EscapesWhatJsonForbids) {
    UseSink("json:" + file);
    Log(2, "quote \" backslash \\ break \n tab \t bell \a");
    Log(2, std::string("zero \0 end", 10));
    EXPECT_THAT(
        JsonLines(),
        ElementsAre(R"({"severity":2,"text":"quote \" backslash \\ break \n tab \t bell \u0007"})",
                    R"({"severity":2,"text":"zero \u0000 end"})"));
}

TEST_F(CoreLoggerTest, Json_BytesThatAreNotUtf8_AreReplaced) {
    UseSink("json:" + file);
    Log(2, "good \xc3\xa4, bad \xff, cut \xc3");
    EXPECT_THAT(JsonLines(),
                ElementsAre("{\"severity\":2,\"text\":\"good \xc3\xa4, bad \xef\xbf\xbd, "
                            "cut \xef\xbf\xbd\"}"));
}

TEST_F(CoreLoggerTest, Text_IsNeverTakenForAFormat) {
    UseSink("json:" + file);
    Log(2, "{} {0} %s %v {");
    EXPECT_THAT(JsonLines(), ElementsAre(R"({"severity":2,"text":"{} {0} %s %v {"})"));
}

TEST_F(CoreLoggerTest, Json_IsAppendedToWhatIsThere) {
    folder.Write("file", "earlier\n");
    UseSink("json:" + file);
    Log(2, "text");
    EXPECT_THAT(JsonLines(), ElementsAre("earlier", R"({"severity":2,"text":"text"})"));
}

TEST_F(CoreLoggerTest, LongLine_IsWrittenWhole) {
    UseSink("json:" + file);
    const std::string text(300000, 'x');
    Log(2, text);
    EXPECT_THAT(JsonLines(), ElementsAre(R"({"severity":2,"text":")" + text + R"("})"));
}

TEST_F(CoreLoggerTest, File_HasTimeZoneProcessAndSeverityBeforeTheText) {
    UseSink("file:" + file);
    Log(2, "some text");
    EXPECT_THAT(Lines(), ElementsAre(testing::MatchesRegex(
                             "[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3} "
                             "[+-][0-9]{2}:[0-9]{2} bmci2c\\[" +
                             std::to_string(::getpid()) + "\\] 2: some text")));
}

TEST_F(CoreLoggerTest, TextOfSeveralLines_IsOneLine) {
    UseSink("file:" + file);
    Log(2, "one\ntwo \x1b[1m");
    EXPECT_THAT(Lines(), ElementsAre(testing::EndsWith(R"(] 2: one\ntwo \x1b[1m)")));
}

TEST_F(CoreLoggerTest, TextOfSeveralLines_IsOneObject) {
    UseSink("json:" + file);
    Log(2, "one\ntwo \x1b[1m");
    EXPECT_THAT(JsonLines(), ElementsAre(R"({"severity":2,"text":"one\ntwo \u001b[1m"})"));
}

TEST_F(CoreLoggerTest, NewFile_IsNotForOtherUsers) {
    UseSink("file:" + file);
    Log(2, "text");
    EXPECT_EQ(std::filesystem::status(file).permissions() & std::filesystem::perms::others_all,
              std::filesystem::perms::none);
}

TEST_F(CoreLoggerTest, StandardError_GetsTheLines) {
    UseSink("stderr");
    testing::internal::CaptureStderr();
    Log(2, "some\ntext");
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::EndsWith(" 2: some\\ntext\n"));
}

TEST_F(CoreLoggerTest, Syslog_GetsTheLines) {
    const SyslogServer server(replacedSyslogSocket);
    UseSink("syslog");
    Log(2, "some text");
    EXPECT_EQ(server.NextText(), "some text");
}

TEST_F(CoreLoggerTest, NoSettings_SendErrorsAndGraverLinesToSyslog) {
    const SyslogServer server(replacedSyslogSocket);
    LogEachSeverity();
    EXPECT_EQ(server.NextText(), "0");
    EXPECT_EQ(server.NextText(), "1");
    EXPECT_EQ(server.NextText(), "2");
    EXPECT_EQ(server.NextText(), std::nullopt);
}

TEST_F(CoreLoggerTest, None_WritesNothing) {
    const SyslogServer server(replacedSyslogSocket);
    UseSink("none");
    testing::internal::CaptureStderr();
    LogEachSeverity();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(server.Next(), std::nullopt);
}

TEST_F(CoreLoggerTest, NumberThatIsNoSeverity_IsTakenAsTheNearest) {
    UseSink("json:" + file);
    Log(7, "text");
    EXPECT_THAT(JsonLines(), ElementsAre(R"({"severity":4,"text":"text"})"));
}

class CoreLoggerLevel : public CoreLoggerTest, public testing::WithParamInterface<int> {};

TEST_P(CoreLoggerLevel, LinesOfThisSeverityAndGraver_AreWritten) {
    UseSink("json:" + file, GetParam());
    LogEachSeverity();
    std::vector<std::string> expected;
    for (int severity = 0; severity <= GetParam(); ++severity) {
        const std::string number = std::to_string(severity);
        expected.push_back("{\"severity\":" + number + ",\"text\":\"" + number + "\"}");
    }
    EXPECT_EQ(JsonLines(), expected);
}

INSTANTIATE_TEST_SUITE_P(Levels, CoreLoggerLevel, testing::Range(0, 5));

TEST_F(CoreLoggerTest, FileThatCannotBeOpened_IsReplacedBySyslogWhichSaysWhy) {
    const SyslogServer server(replacedSyslogSocket);
    const std::string absent = folder.File("absent/{}");
    for (const std::string form : {"file:", "json:"}) {
        UseSink(form + absent, 2);
        CoreLogger other;
        other.Log(NQUVZDX20::kLogError, "text");
        other.Log(NQUVZDX20::kLogTrace, "trace");
        EXPECT_EQ(server.NextText(), "Log: " + absent +
                                         " cannot be opened: No such file or directory. Its lines "
                                         "go to syslog.");
        EXPECT_EQ(server.NextText(), "text");
        EXPECT_EQ(server.NextText(), std::nullopt);
    }
}

TEST_F(CoreLoggerTest, FullDisk_LosesLinesAndTellsSyslogOnce) {
    const SyslogServer server(replacedSyslogSocket);
    UseSink("file:/dev/full");
    Log(2, "first");
    Log(2, "second");
    EXPECT_EQ(server.NextText(),
              "Log: lines are lost: /dev/full cannot be written: No space left on device.");
    EXPECT_EQ(server.Next(), std::nullopt);
}

TEST_F(CoreLoggerTest, SettingsThatAreMended_AreFollowedFromTheNextLineOn) {
    const SyslogServer server(replacedSyslogSocket);
    replacedSettings.problem = "broken";
    Log(2, "while broken");
    UseSink("json:" + file);
    Log(2, "still broken");
    replacedSettings.problem = "";
    Log(3, "mended");
    EXPECT_EQ(server.NextText(), "while broken");
    EXPECT_EQ(server.NextText(), "still broken");
    EXPECT_EQ(server.NextText(), std::nullopt);
    EXPECT_THAT(JsonLines(), ElementsAre(R"({"severity":3,"text":"mended"})"));
}

TEST_F(CoreLoggerTest, ReadableSettings_AreFollowedOnce) {
    UseSink("json:" + file);
    Log(2, "first");
    UseSink("none");
    Log(2, "second");
    EXPECT_THAT(Lines(), SizeIs(2));
}

TEST_F(CoreLoggerTest, LinesOfManyThreads_AreWholeAndInEachThreadsOrder) {
    UseSink("json:" + file);
    constexpr int kThreads = 8;
    constexpr int kLines = 500;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([this, thread] {
            for (int line = 0; line < kLines; ++line)
                Log(2, std::to_string(thread) + " " + std::to_string(line));
        });
    }
    for (std::thread& thread : threads) thread.join();

    std::vector<int> next(kThreads);
    for (const std::string& line : Lines()) {
        const std::string text = nlohmann::json::parse(line).at("text");
        const std::size_t thread = std::stoul(text);
        EXPECT_EQ(text, std::to_string(thread) + " " + std::to_string(next.at(thread)++));
    }
    EXPECT_THAT(next, testing::Each(kLines));
}

TEST_F(CoreLoggerTest, SpdlogsRegistry_KnowsNothingOfIt) {
    UseSink("json:" + file);
    Log(2, "text");
    EXPECT_EQ(spdlog::get("bmci2c"), nullptr);
}

std::ptrdiff_t CountDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

TEST_F(CoreLoggerTest, AfterItsEnd_NoDescriptorIsLeft) {
    UseSink("json:" + file);
    const std::ptrdiff_t before = CountDescriptors();
    {
        CoreLogger other;
        other.Log(NQUVZDX20::kLogError, "text");
        EXPECT_EQ(CountDescriptors(), before + 1);
    }
    EXPECT_EQ(CountDescriptors(), before);
}

TEST_F(CoreLoggerTest, BeforeTheFirstLine_NothingIsOpened) {
    UseSink("json:" + file);
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_THAT(Lines(), IsEmpty());
}

}  // namespace
