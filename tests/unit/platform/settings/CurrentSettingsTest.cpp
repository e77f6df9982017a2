#include <gmock/gmock.h>
#include <platform/settings/Settings.h>
#include <platform/settings/SettingsCache.h>

#include <thread>
#include <vector>

#include "ReplacedDefaultPaths.h"
#include "SettingsEnvironment.h"
#include "TemporaryFolder.h"

namespace {

using platform::Settings;
using platform::SettingsCache;

class CachedSettings : public testing::Test {
protected:
    void WriteFile(const std::string& text) {
        environment.Set("BMCI2C_CONFIG", folder.Write("platform.toml", text));
    }

    const TemporaryFolder folder;
    const SettingsEnvironment environment;
    SettingsCache cache;
};

constexpr const char* kController =
    "[[controller]]\ntransport = \"inband\"\ndevice = \"/dev/ipmi0\"\n";

TEST_F(CachedSettings, ReadOnce_StayThoughTheFileChanges) {
    WriteFile("[controllers]\ntime_limit = 5\n");
    const auto first = cache.Get();
    WriteFile("[controllers]\ntime_limit = 6\n");
    EXPECT_EQ(cache.Get(), first);
    EXPECT_EQ(first->timeLimit.value, 5);
}

TEST_F(CachedSettings, BrokenFile_GivesDefaultsAndNoControllersAndTheProblem) {
    WriteFile(std::string("[machine]\ntype = \"7000\"\n") + kController + "devise = 1\n");
    const auto settings = cache.Get();
    EXPECT_EQ(settings->problem,
              folder.File("platform.toml") +
                  ":6:1: key 'controller[0].devise': found an unknown key, allowed are device, "
                  "time_limit and transport.");
    ASSERT_TRUE(settings->controllers.value.has_value());
    EXPECT_TRUE(settings->controllers.value->empty());
    EXPECT_EQ(settings->machineType.value, std::nullopt);
    EXPECT_EQ(settings->root.value, kReplacedRoot);
}

TEST_F(CachedSettings, BrokenFileThatIsMended_IsReadAtTheNextCall) {
    WriteFile("[controllers]\ntime_limit = 0\n");
    EXPECT_NE(cache.Get()->problem, "");
    WriteFile("[controllers]\ntime_limit = \n");
    EXPECT_NE(cache.Get()->problem, "");
    WriteFile(std::string("[controllers]\ntime_limit = 1\n") + kController);
    const auto settings = cache.Get();
    EXPECT_EQ(settings->problem, "");
    EXPECT_EQ(settings->timeLimit.value, 1);
    EXPECT_EQ(settings->controllers.value->size(), 1u);
    EXPECT_EQ(cache.Get(), settings);
}

TEST_F(CachedSettings, BrokenProfile_GivesNoControllers) {
    WriteFile(kController);
    environment.Set("BMCI2C_SIMULATE", folder.Write("profile.toml", "oxc = 1"));
    const auto settings = cache.Get();
    EXPECT_TRUE(settings->controllers.value->empty());
    EXPECT_EQ(settings->problem,
              folder.File("profile.toml") +
                  ":1:7: key 'oxc': found an integer, allowed is true or false.");
}

TEST_F(CachedSettings, BrokenFile_LeavesTheVariablesThatAreRightInForce) {
    WriteFile("[");
    environment.Set("BMCI2C_ROOT", "/environment/root");
    environment.Set("BMCI2C_LOG", "stderr");
    environment.Set("BMCI2C_LOG_LEVEL", "five");
    const auto settings = cache.Get();
    EXPECT_EQ(settings->root.value, "/environment/root");
    EXPECT_EQ(settings->log.value, "stderr");
    EXPECT_EQ(settings->logLevel.value, 2);
}

TEST_F(CachedSettings, ManyThreads_GetOneObject) {
    WriteFile(kController);
    constexpr std::size_t kThreads = 8;
    std::vector<std::shared_ptr<const Settings>> got(kThreads);
    std::vector<std::thread> threads;
    for (auto& settings : got) threads.emplace_back([&] { settings = cache.Get(); });
    for (std::thread& thread : threads) thread.join();
    EXPECT_THAT(got, testing::Each(got.front()));
    EXPECT_EQ(got.front()->controllers.value->size(), 1u);
}

TEST_F(CachedSettings, ManyThreadsOnABrokenFile_GetTheProblemEach) {
    WriteFile("[");
    constexpr std::size_t kThreads = 8;
    std::vector<std::string> problems(kThreads);
    std::vector<std::thread> threads;
    for (auto& problem : problems) threads.emplace_back([&] { problem = cache.Get()->problem; });
    for (std::thread& thread : threads) thread.join();
    EXPECT_THAT(problems, testing::Each(testing::StartsWith(folder.File("platform.toml") + ":1:")));
}

TEST_F(CachedSettings, CurrentSettings_AreOneCacheOfTheProcess) {
    WriteFile("[controllers]\ntime_limit = 5\n");
    const auto first = platform::CurrentSettings();
    WriteFile("[controllers]\ntime_limit = 6\n");
    EXPECT_EQ(platform::CurrentSettings(), first);
    EXPECT_EQ(first->timeLimit.value, 5);
}

TEST_F(CachedSettings, ThatAreSet_GoBeforeThoseThatCanBeRead) {
    WriteFile("[controllers]\ntime_limit = 5\n");
    const auto before = cache.Get();
    Settings chosen = *before;
    chosen.timeLimit.value = 7;
    cache.Set(chosen);
    EXPECT_EQ(cache.Get()->timeLimit.value, 7);
    EXPECT_EQ(before->timeLimit.value, 5);
}

TEST_F(CachedSettings, ThatAreSetFirst_AreNeverRead) {
    WriteFile("[");
    cache.Set({});
    EXPECT_EQ(cache.Get()->problem, "");
}

TEST_F(CachedSettings, CurrentSettings_AreThoseThatAreUsed) {
    Settings chosen;
    chosen.timeLimit.value = 8;
    platform::UseSettings(chosen);
    EXPECT_EQ(platform::CurrentSettings()->timeLimit.value, 8);
}

}  // namespace
