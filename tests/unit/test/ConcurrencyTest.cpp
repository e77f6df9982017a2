#include <algorithm>
#include <atomic>
#include <latch>
#include <thread>

#include "EngineFixture.h"

using engine::kStatus;
using engine::Location;
using engine::RecordsOf;
using engine::RecordView;

namespace {

constexpr int kRuns = 20;

class Concurrency : public engine::EngineTest {
protected:
    Concurrency() { FakeServiceProcessor::nodeCount = 3; }
};

}  // namespace

TEST_F(Concurrency, ReadingWhileAControllerIsBusy_SeesNoRecord) {
    AnswerStatus(0, {0});
    FakeServiceProcessor::Script(1, kStatus, {.completionCode = 0xFF});
    AnswerStatus(1, {0});
    AnswerStatus(2, {0});
    Run();
    ASSERT_EQ(Records().size(), 1u);
    std::vector<RecordView> seen(1);
    FakeSystem::onSleep = [&] { seen = Records(); };
    FakeServiceProcessor::Script(1, kStatus, {.completionCode = 0xFF});
    Run();
    EXPECT_EQ(seen, std::vector<RecordView>{});
    EXPECT_EQ(Records().size(), 2u);
}

TEST_F(Concurrency, ReadingWhileRunning_SeesAllRecordsOfARunOrNone) {
    AnswerStatus(0, {0});
    AnswerStatus(1, {0, 0x80});
    FakeServiceProcessor::Script(2, kStatus, {.completionCode = 0xC1});
    const std::string first = "166-000-001 PASS: All busses work.";
    const std::string second = first + "\n166-916-002 FAULT: Bus 15 failed.";
    const std::string third = second + "166-804-003 STOP: Code C1.";
    BMCI2C_Test_Impl& test = Test();
    std::atomic<bool> running = true;
    std::thread runner([&] {
        for (int run = 0; run < kRuns; ++run) {
            test.RunDiagnostic("I2C Bus");
        }
        running = false;
    });
    const std::vector<RecordView> all = {{"I2C Bus", third, 6}, {"I2C Bus", third, 6}};
    while (running) {
        const std::vector<RecordView> seen = RecordsOf(test);
        EXPECT_TRUE(seen.empty() || seen == all);
    }
    runner.join();
    EXPECT_EQ(RecordsOf(test), all);
}

TEST_F(Concurrency, TwoRunsAtOnce_ExcludeEachOther) {
    AnswerStatus(0, {0});
    AnswerStatus(1, {0});
    AnswerStatus(2, {0});
    BMCI2C_Test_Impl& test = Test();
    std::atomic<int> inside = 0;
    std::atomic<bool> overlapped = false;
    // A run's first question comes from node 0, its last from node 2.
    FakeServiceProcessor::onObjectAskedFor = [&](int node) {
        if (node == 1) {
            if (++inside > 1) {
                overlapped = true;
            }
            std::this_thread::yield();
        } else if (node == 2) {
            --inside;
        }
    };
    const auto runAgainAndAgain = [&] {
        for (int run = 0; run < kRuns; ++run) {
            test.RunDiagnostic("I2C Bus");
        }
    };
    std::thread other(runAgainAndAgain);
    runAgainAndAgain();
    other.join();
    EXPECT_FALSE(overlapped);
    EXPECT_EQ(RecordsOf(test).size(), 1u);
}

TEST_F(Concurrency, SupportCheckWhileAControllerIsBusy_BeginsAfterTheRun) {
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xFF});
    AnswerStatus(0, {0});
    BMCI2C_Test_Impl& test = Test();
    std::latch begun(1);
    std::thread checker;
    FakeSystem::onSleep = [&] {
        checker = std::thread([&] {
            begun.count_down();
            test.SupportedMachineType();
        });
        begun.wait();
        for (int i = 0; i < 10; ++i) {
            std::this_thread::yield();  // the check's chance to begin too early
        }
    };
    Run();
    checker.join();
    const std::vector<std::string> log = Log();
    const auto endOfRun = std::find(log.begin(), log.end(), Location(507));
    const std::string beginning = "3 getMachineType() entered.";
    EXPECT_EQ(std::count(log.begin(), endOfRun, beginning), 1);
    EXPECT_EQ(std::count(endOfRun, log.end(), beginning), 1);
}

TEST_F(Concurrency, SupportCheckWhileRunning_LeavesTheRunsResultAlone) {
    AnswerStatus(0, {0});
    AnswerStatus(1, {0});
    AnswerStatus(2, {0});
    BMCI2C_Test_Impl& test = Test();
    std::thread runner([&] {
        for (int run = 0; run < kRuns; ++run) {
            test.RunDiagnostic("I2C Bus");
        }
    });
    for (int check = 0; check < kRuns; ++check) {
        EXPECT_TRUE(test.SupportedMachineType());
    }
    runner.join();
    EXPECT_EQ(RecordsOf(test).front().state, 2);
}
