#include <gmock/gmock.h>
#include <platform/settings/SimulatedProfile.h>

#include <limits>

#include "TemporaryFolder.h"

namespace {

using platform::SimulatedNode;
using platform::SimulatedProfile;
using testing::ElementsAre;
using testing::IsEmpty;

SimulatedProfile ProfileOf(const std::string& text) {
    const TemporaryFolder folder;
    return platform::ReadSimulatedProfile(folder.Write("profile.toml", text));
}

SimulatedNode NodeOf(const std::string& text) { return ProfileOf("[[node]]\n" + text).nodes.at(0); }

TEST(SimulatedProfile, EmptyFile_IsAMachineWithoutControllers) {
    const SimulatedProfile profile = ProfileOf("");
    EXPECT_EQ(profile.machineType, std::nullopt);
    EXPECT_EQ(profile.biosId, std::nullopt);
    EXPECT_EQ(profile.oxc, std::nullopt);
    EXPECT_EQ(profile.oemBuild, std::nullopt);
    EXPECT_EQ(profile.generation, 1);
    EXPECT_THAT(profile.nodes, IsEmpty());
}

TEST(SimulatedProfile, EveryKey_IsRead) {
    const SimulatedProfile profile = ProfileOf(R"(
machine_type = "7000"
bios_id = "P7E100A"
oxc = true
oem_build = false
generation = 2
[[node]]
data = [0, 0x80, 255]
completion_code = 0xC1
busy = 3
length = -1
answers = false
present = false
answers_generation = false
generation_completion_code = 0xD5
answers_device_id = false
[[node]]
)");
    EXPECT_EQ(profile.machineType, "7000");
    EXPECT_EQ(profile.biosId, "P7E100A");
    EXPECT_EQ(profile.oxc, true);
    EXPECT_EQ(profile.oemBuild, false);
    EXPECT_EQ(profile.generation, 2);
    ASSERT_EQ(profile.nodes.size(), 2u);
    const SimulatedNode& node = profile.nodes[0];
    EXPECT_THAT(node.data, ElementsAre(0, 0x80, 255));
    EXPECT_EQ(node.completionCode, 0xC1);
    EXPECT_EQ(node.busy, 3);
    EXPECT_EQ(node.length, -1);
    EXPECT_FALSE(node.answers);
    EXPECT_FALSE(node.present);
    EXPECT_FALSE(node.answersGeneration);
    EXPECT_EQ(node.generationCompletionCode, 0xD5);
    EXPECT_FALSE(node.answersDeviceId);
}

TEST(SimulatedProfile, EmptyNode_HasTheDefaults) {
    const SimulatedNode node = NodeOf("");
    EXPECT_THAT(node.data, IsEmpty());
    EXPECT_EQ(node.completionCode, 0);
    EXPECT_EQ(node.busy, 0);
    EXPECT_EQ(node.length, std::nullopt);
    EXPECT_TRUE(node.answers);
    EXPECT_TRUE(node.present);
}

TEST(SimulatedProfile, NumbersAtTheirLimits_AreRead) {
    EXPECT_EQ(NodeOf("length = -2147483648").length, std::numeric_limits<int>::min());
    EXPECT_EQ(NodeOf("length = 2147483647").length, std::numeric_limits<int>::max());
    EXPECT_EQ(NodeOf("busy = 2147483647").busy, std::numeric_limits<int>::max());
    EXPECT_EQ(NodeOf("completion_code = 255").completionCode, 255);
}

TEST(SimulatedProfile, EmptyTexts_AreTexts) {
    EXPECT_EQ(ProfileOf("machine_type = \"\"").machineType, "");
    EXPECT_EQ(ProfileOf("bios_id = \"\"").biosId, "");
}

}  // namespace
