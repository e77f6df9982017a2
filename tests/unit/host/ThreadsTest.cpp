#include <atomic>
#include <thread>

#include "HostFixture.h"

namespace host {
namespace {

class ThreadsTest : public HostTest {};

TEST_F(ThreadsTest, ParallelRequests_DoNotDisturbEachOther) {
    constexpr int kThreads = 8;
    constexpr int kRounds = 50;
    std::atomic<int> wrong = 0;
    const auto work = [&](int thread) {
        const std::string text = "text of thread " + std::to_string(thread);
        for (int round = 0; round < kRounds; ++round) {
            const auto echo = host.InvokeMethod(PathTo("T_Thing", "one"), "Echo",
                                                {{"Text", {CMPI_string, text}}});
            const Value* const heard = FindValue(echo.out, "Text");
            if (!heard || std::get<std::string>(heard->data) != text) ++wrong;
            if (host.EnumerateInstances(PathTo("T_Thing")).instances.size() != 3) ++wrong;
            if (host.Associators(PathTo("T_Thing", "one"), "T_Refused", "", "", "")
                    .instances.size() != 1)
                ++wrong;
            const auto count = host.InvokeMethod(PathTo("T_Thing", "one"), "Count", {});
            if (count.status.code != CMPI_RC_OK) ++wrong;
        }
    };
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) threads.emplace_back(work, thread);
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0);
}

TEST_F(ThreadsTest, ParallelFirstRequests_MakeEachInterfaceOnce) {
    const TestModule module;
    module.TakeInterfaceCounts();
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 8; ++thread)
        threads.emplace_back([&] { host.EnumerateInstances(PathTo("T_Thing")); });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(module.TakeInterfaceCounts().made, 1);
}

TEST_F(ThreadsTest, ThreadWithoutARequest_CannotMakeObjects) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        std::thread([&] {
            CMPIStatus status{};
            EXPECT_EQ(broker->eft->newString(broker, "x", &status), nullptr);
            EXPECT_EQ(status.rc, CMPI_RC_ERR_FAILED);
            EXPECT_EQ(status.msg, nullptr);
        }).join();
    });
}

}  // namespace
}  // namespace host
