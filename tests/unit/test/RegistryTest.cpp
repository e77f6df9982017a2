#include <fakes/FakeServiceProcessor.h>
#include <fakes/FakeSystem.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <test/BMCI2C_Test_Impl.h>
#include <test/Globals_BMCI2C_Test.h>

#include <array>
#include <cstdlib>
#include <new>
#include <string>
#include <thread>
#include <vector>

namespace {

Globals_BMCI2C_Test& Registry() { return *Globals_BMCI2C_Test::Instance(); }

std::string InstanceID() { return Registry().GetInstanceID().c_str(); }

std::string GeneratedID(int randomNumber) {
    FakeSystem::randomNumbers = {randomNumber};
    Registry().GenerateInstanceID();
    return InstanceID();
}

class RegistryTest : public ::testing::Test {
protected:
    RegistryTest() {
        FakeServiceProcessor::Reset();
        FakeSystem::Reset();
    }
};

// Each check below runs in a process of its own, in which the registry was not made yet. The
// process ends within the check, so these tests have nothing that must be torn down.
class FreshRegistryDeathTest : public ::testing::Test {
protected:
    FreshRegistryDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

[[noreturn]] void RunAndExit(void (*check)()) {
    check();
    std::exit(::testing::Test::HasFailure() ? 1 : 0);
}

void FirstReadDrawsTheInstanceID() {
    FakeSystem::randomNumbers = {1804289383, 846930886};
    EXPECT_EQ(InstanceID(), "BMCI2C_Record:383");
    EXPECT_EQ(InstanceID(), "BMCI2C_Record:383");
    Registry().GenerateInstanceID();
    EXPECT_EQ(InstanceID(), "BMCI2C_Record:886");
}

void CallAfterAFailedOneMakesTheRegistry() {
    FakeServiceProcessor::onObjectAskedFor = [](int) { throw std::bad_alloc(); };
    EXPECT_THROW(Globals_BMCI2C_Test::Instance(), std::bad_alloc);
    FakeServiceProcessor::onObjectAskedFor = nullptr;
    EXPECT_EQ(Registry().tests.size(), 1u);
}

void ManyFirstCallsMakeOneRegistry() {
    std::array<Globals_BMCI2C_Test*, 8> seen{};
    std::vector<std::thread> threads;
    for (Globals_BMCI2C_Test*& registry : seen) {
        threads.emplace_back([&registry] { registry = Globals_BMCI2C_Test::Instance(); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const Globals_BMCI2C_Test* registry : seen) {
        EXPECT_EQ(registry, &Registry());
    }
    EXPECT_EQ(FakeServiceProcessor::ObjectsAskedFor().size(), 1u);
}

}  // namespace

TEST_F(RegistryTest, Instance_IsTheSameEveryTime) {
    EXPECT_NE(Globals_BMCI2C_Test::Instance(), nullptr);
    EXPECT_EQ(Globals_BMCI2C_Test::Instance(), Globals_BMCI2C_Test::Instance());
}

TEST_F(RegistryTest, Tests_HoldTheI2cBusTestOnly) {
    ASSERT_EQ(Registry().tests.size(), 1u);
    EXPECT_NE(dynamic_cast<BMCI2C_Test_Impl*>(Registry().tests[0]), nullptr);
    EXPECT_STREQ(Registry().tests[0]->GetCaption().c_str(), "I2C Bus Test");
}

TEST_F(RegistryTest, SystemName_IsEmpty) { EXPECT_STREQ(Registry().systemName.c_str(), ""); }

TEST_F(RegistryTest, InstallDate_IsAPointInTimeThatStays) {
    const cimple::Datetime date = Registry().installDate;
    EXPECT_FALSE(date.is_interval());
    while (cimple::Datetime::now() == date) std::this_thread::yield();
    EXPECT_EQ(Registry().installDate, date);
}

TEST_F(RegistryTest, InstanceID_IsTheNumberModulo1000WithoutPadding) {
    EXPECT_EQ(GeneratedID(1804289383), "BMCI2C_Record:383");
    EXPECT_EQ(GeneratedID(2147483647), "BMCI2C_Record:647");
    EXPECT_EQ(GeneratedID(999), "BMCI2C_Record:999");
    EXPECT_EQ(GeneratedID(1000), "BMCI2C_Record:0");
    EXPECT_EQ(GeneratedID(5007), "BMCI2C_Record:7");
}

TEST_F(RegistryTest, InstanceID_StaysUntilTheNextGeneration) {
    FakeSystem::randomNumbers = {1, 2};
    Registry().GenerateInstanceID();
    EXPECT_EQ(InstanceID(), "BMCI2C_Record:1");
    EXPECT_EQ(InstanceID(), "BMCI2C_Record:1");
    Registry().GenerateInstanceID();
    EXPECT_EQ(InstanceID(), "BMCI2C_Record:2");
}

TEST_F(RegistryTest, RandomNumbers_AreNeverSeeded) {
    Registry().GenerateInstanceID();
    InstanceID();
    EXPECT_EQ(FakeSystem::seedings, 0);
}

TEST_F(RegistryTest, InstanceID_DrawnAndReadByManyThreads_IsAlwaysWhole) {
    constexpr int kDraws = 100;
    FakeSystem::randomNumbers.clear();
    for (int number = 0; number < 2 * kDraws; ++number) FakeSystem::randomNumbers.push_back(number);
    const auto drawAndRead = [] {
        for (int i = 0; i < kDraws; ++i) {
            Registry().GenerateInstanceID();
            EXPECT_THAT(InstanceID(), testing::MatchesRegex("BMCI2C_Record:[0-9]+"));
        }
    };
    std::thread other(drawAndRead);
    drawAndRead();
    other.join();
    EXPECT_TRUE(FakeSystem::randomNumbers.empty()) << "each number is drawn once";
}

TEST_F(FreshRegistryDeathTest, InstanceID_FirstReadDrawsIt) {
    EXPECT_EXIT(RunAndExit(FirstReadDrawsTheInstanceID), ::testing::ExitedWithCode(0), "");
}

TEST_F(FreshRegistryDeathTest, Instance_ConstructionThrows_NextCallTriesAgain) {
    EXPECT_EXIT(RunAndExit(CallAfterAFailedOneMakesTheRegistry), ::testing::ExitedWithCode(0), "");
}

TEST_F(FreshRegistryDeathTest, Instance_AskedForByManyThreadsAtOnce_IsMadeOnce) {
    EXPECT_EXIT(RunAndExit(ManyFirstCallsMakeOneRegistry), ::testing::ExitedWithCode(0), "");
}
