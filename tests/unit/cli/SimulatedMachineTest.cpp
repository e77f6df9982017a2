#include <cli/Installation.h>
#include <cli/doctor/SimulatedMachine.h>
#include <gmock/gmock.h>
#include <platform/settings/Settings.h>

namespace cli {
namespace {

TEST(SimulatedMachine, WhileItIsThere_IsWhatTheSettingsSay) {
    const ScopedVariable config("BMCI2C_CONFIG", "/absent/platform.toml");
    std::string folder;
    {
        const SimulatedMachine machine;
        const platform::Settings settings = platform::ReadSettings();
        EXPECT_EQ(settings.machineType.value, "GENERIC_QUV");
        EXPECT_EQ(settings.log.value, "none");
        ASSERT_EQ(settings.controllers.value->size(), 1u);
        EXPECT_THAT(settings.controllers.value->at(0).simulated->data, testing::ElementsAre(0));
        folder = settings.root.value;
        EXPECT_TRUE(std::filesystem::exists(CatalogBelow(folder)));
    }
    EXPECT_FALSE(std::filesystem::exists(folder));
    EXPECT_EQ(platform::ReadSettingsOrProblem().problem,
              "/absent/platform.toml: The file cannot be read: No such file or directory.");
}

TEST(SimulatedMachine, WithoutAPlaceForItsFolder_IsAnError) {
    const ScopedVariable place("TMPDIR", "/proc");
    EXPECT_THROW(MachineFolder(), std::system_error);
}

}  // namespace
}  // namespace cli
