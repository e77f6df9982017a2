// Requests come in parallel from a pool of threads, also for one provider.
#include <thread>

#include "ServerTest.h"

namespace {

using Parallel = ServerTest;

constexpr int kThreads = 4;
constexpr int kRounds = 5;

}  // namespace

FOR_EVERY_SERVER(Parallel);

TEST_P(Parallel, RunsAndEnumerationsOfEveryClass_AllSucceed) {
    const auto work = [this](bool runs) {
        for (int i = 0; i < kRounds; ++i) {
            if (runs) {
                const Reply run = Run();
                EXPECT_TRUE(run.IsOk()) << run;
            }
            for (const std::string& className : server.ModuleClasses()) {
                const Reply instances = server.EnumerateInstances(className);
                EXPECT_TRUE(instances.IsOk()) << className << ": " << instances;
                const Reply names = server.EnumerateInstanceNames(className);
                EXPECT_TRUE(names.IsOk()) << className << ": " << names;
            }
        }
    };
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < kThreads; ++i) threads.emplace_back(work, i % 2 == 0);
    }
    EXPECT_EQ(server.EnumerateInstances(kRecord).instances.size(), 1U);
    EXPECT_EQ(server.EnumerateInstances("QUVSG_BMCI2C_ElementSetting").instances.size(),
              std::size_t{2 * kThreads * kRounds + 1});
}

TEST_P(Parallel, FirstRequestsOfOneProvider_ShareOneProviderObject) {
    constexpr char kSettings[] = "QUVSG_BMCI2C_ElementSetting";
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < kThreads; ++i)
            threads.emplace_back([&] { server.EnumerateInstances(kSettings); });
    }
    EXPECT_EQ(server.EnumerateInstances(kSettings).instances.size(), std::size_t{kThreads + 1});
}
