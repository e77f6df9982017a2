// What a thousand runs leave behind: the records of the last one.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <test/Globals_BMCI2C_Test.h>

#include "ProcessSize.h"
#include "TemporaryFolder.h"

namespace {

constexpr int kRuns = 1000;
constexpr int kRunsBefore = 100;

// Sets what a run reads before the process's first one.
class Endurance : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        setenv("BMCI2C_CONFIG", "/dev/null", 1);
        setenv("BMCI2C_LOG", "none", 1);
        setenv("BMCI2C_ROOT", BMCI2C_DATA, 1);
        setenv("BMCI2C_SIMULATE", folder.Write("profile.toml", GetParam()).c_str(), 1);
    }

    static void Run() { Globals_BMCI2C_Test::Instance()->tests.at(0)->RunDiagnostic("I2C Bus"); }

    const TemporaryFolder folder;
};

TEST_P(Endurance, ThousandRuns_LeaveNoDescriptorAndNoMemory) {
    ProcessSize before{};
    for (int run = 0; run < kRuns; ++run) {
        if (run == kRunsBefore) before = ProcessSize::Now();
        Run();
    }
    const ProcessSize after = ProcessSize::Now();

    EXPECT_EQ(after.descriptors, before.descriptors);
    EXPECT_LE(after.GrownFrom(before), kMemoryThatMayGrow);
}

INSTANTIATE_TEST_SUITE_P(
    Machines, Endurance,
    testing::Values("machine_type = \"7000\"\n[[node]]\ndata = [0, 0, 1]\n[[node]]\ndata = [0]\n",
                    "machine_type = \"7000\"\noxc = true\n[[node]]\ndata = [0]\n"
                    "[[node]]\nanswers = false\n[[node]]\ncompletion_code = 0xC1\n"));

}  // namespace
