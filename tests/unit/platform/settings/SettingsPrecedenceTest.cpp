#include <gmock/gmock.h>
#include <platform/settings/Settings.h>

#include "ReplacedDefaultPaths.h"
#include "SettingsEnvironment.h"
#include "TemporaryFolder.h"

namespace {

using platform::Origin;
using platform::Settings;

constexpr const char* kFile = R"(
[machine]
type = "file type"
bios_id = "file BIOS"
[diagnostics]
root = "/file/root"
oem_build = true
[controllers]
oxc = true
[log]
sink = "stderr"
level = 1
[[controller]]
transport = "inband"
device = "/dev/ipmi0"
)";

constexpr const char* kFullProfile = R"(
machine_type = "profile type"
bios_id = "profile BIOS"
oxc = false
oem_build = false
generation = 2
[[node]]
data = [1]
[[node]]
data = [2]
)";

class SettingsPrecedence : public testing::Test {
protected:
    void UseFile() { environment.Set("BMCI2C_CONFIG", folder.Write("platform.toml", kFile)); }
    void UseProfile(const std::string& text) {
        environment.Set("BMCI2C_SIMULATE", folder.Write("profile.toml", text));
    }
    void UseEnvironment() {
        environment.Set("BMCI2C_ROOT", "/environment/root");
        environment.Set("BMCI2C_LOG", "none");
        environment.Set("BMCI2C_LOG_LEVEL", "4");
    }

    const TemporaryFolder folder;
    const SettingsEnvironment environment;
};

template <class T>
void ExpectSetting(const platform::Setting<T>& setting, const T& value, Origin origin) {
    EXPECT_EQ(setting.value, value);
    EXPECT_EQ(setting.origin, origin);
}

TEST_F(SettingsPrecedence, EnvironmentAndProfile_SayWhereExactly) {
    UseProfile("\nmachine_type = \"7000\"\n[[node]]\n");
    UseEnvironment();
    const Settings settings = platform::ReadSettings();
    EXPECT_EQ(settings.profileFile.place, "BMCI2C_SIMULATE");
    EXPECT_EQ(settings.root.place, "BMCI2C_ROOT");
    EXPECT_EQ(settings.log.place, "BMCI2C_LOG");
    EXPECT_EQ(settings.logLevel.place, "BMCI2C_LOG_LEVEL");
    EXPECT_EQ(settings.machineType.place, folder.File("profile.toml") + ":2");
    EXPECT_EQ(settings.controllers.place, folder.File("profile.toml") + ":3");
}

TEST_F(SettingsPrecedence, ProfileWithoutNodes_IsTheWholePlaceOfNoControllers) {
    UseProfile("");
    EXPECT_EQ(platform::ReadSettings().controllers.place, folder.File("profile.toml"));
}

TEST_F(SettingsPrecedence, EnvironmentOverDefaults) {
    UseEnvironment();
    const Settings settings = platform::ReadSettings();
    ExpectSetting<std::string>(settings.root, "/environment/root", Origin::Environment);
    ExpectSetting<std::string>(settings.log, "none", Origin::Environment);
    ExpectSetting(settings.logLevel, 4, Origin::Environment);
}

TEST_F(SettingsPrecedence, EnvironmentOverFile) {
    UseFile();
    UseEnvironment();
    const Settings settings = platform::ReadSettings();
    ExpectSetting<std::string>(settings.root, "/environment/root", Origin::Environment);
    ExpectSetting<std::string>(settings.log, "none", Origin::Environment);
    ExpectSetting(settings.logLevel, 4, Origin::Environment);
    ExpectSetting<std::optional<std::string>>(settings.machineType, "file type", Origin::File);
}

TEST_F(SettingsPrecedence, EmptyVariables_CountAsUnset) {
    UseFile();
    for (const char* variable :
         {"BMCI2C_SIMULATE", "BMCI2C_ROOT", "BMCI2C_LOG", "BMCI2C_LOG_LEVEL"})
        environment.Set(variable, "");
    const Settings settings = platform::ReadSettings();
    ExpectSetting<std::string>(settings.root, "/file/root", Origin::File);
    ExpectSetting<std::string>(settings.log, "stderr", Origin::File);
    ExpectSetting(settings.logLevel, 1, Origin::File);
    ExpectSetting<std::string>(settings.profileFile, "", Origin::Default);
}

TEST_F(SettingsPrecedence, EmptyConfigVariable_ReadsTheDefaultFile) {
    replacedSettingsFile = folder.Write("default.toml", "[log]\nlevel = 0\n");
    environment.Set("BMCI2C_CONFIG", "");
    const Settings settings = platform::ReadSettings();
    replacedSettingsFile = "/nonexistent/platform.toml";
    ExpectSetting(settings.logLevel, 0, Origin::File);
}

TEST_F(SettingsPrecedence, ProfileOverFile) {
    UseFile();
    UseProfile(kFullProfile);
    const Settings settings = platform::ReadSettings();
    ExpectSetting<std::string>(settings.profileFile, folder.File("profile.toml"),
                               Origin::Environment);
    ExpectSetting<std::optional<std::string>>(settings.machineType, "profile type",
                                              Origin::Profile);
    ExpectSetting<std::optional<std::string>>(settings.biosId, "profile BIOS", Origin::Profile);
    ExpectSetting<platform::OxcFamily>(settings.oxc, false, Origin::Profile);
    ExpectSetting(settings.oemBuild, false, Origin::Profile);
    EXPECT_EQ(settings.controllers.origin, Origin::Profile);
    ASSERT_EQ(settings.controllers.value->size(), 2u);
    for (std::uint8_t node = 0; node < 2; ++node) {
        const platform::ControllerSettings& controller = settings.controllers.value->at(node);
        EXPECT_EQ(controller.transport, platform::TransportKind::Simulated);
        EXPECT_THAT(controller.simulated->data, testing::ElementsAre(node + 1));
        EXPECT_EQ(controller.simulatedGeneration, 2);
    }
    // What a profile does not speak of is the file's.
    ExpectSetting<std::string>(settings.root, "/file/root", Origin::File);
}

TEST_F(SettingsPrecedence, EmptyProfile_LeavesTheMachineToTheFileButHasNoControllers) {
    UseFile();
    UseProfile("");
    const Settings settings = platform::ReadSettings();
    ExpectSetting<std::optional<std::string>>(settings.machineType, "file type", Origin::File);
    ExpectSetting<std::optional<std::string>>(settings.biosId, "file BIOS", Origin::File);
    ExpectSetting<platform::OxcFamily>(settings.oxc, true, Origin::File);
    ExpectSetting(settings.oemBuild, true, Origin::File);
    EXPECT_EQ(settings.controllers.origin, Origin::Profile);
    ASSERT_TRUE(settings.controllers.value.has_value());
    EXPECT_TRUE(settings.controllers.value->empty());
}

TEST_F(SettingsPrecedence, ProfileOverDefaults) {
    UseProfile("machine_type = \"profile type\"\noxc = true");
    const Settings settings = platform::ReadSettings();
    ExpectSetting<std::optional<std::string>>(settings.machineType, "profile type",
                                              Origin::Profile);
    ExpectSetting<platform::OxcFamily>(settings.oxc, true, Origin::Profile);
    ExpectSetting<std::optional<std::string>>(settings.biosId, std::nullopt, Origin::Default);
}

TEST_F(SettingsPrecedence, ChosenVariablesOverThoseOfTheProcess) {
    UseEnvironment();
    environment.Set("BMCI2C_CONFIG", "/absent.toml");
    environment.Set("BMCI2C_SIMULATE", "/absent.toml");
    const Settings settings = platform::ReadSettings(
        {{"BMCI2C_CONFIG", folder.Write("platform.toml", kFile)},
         {"BMCI2C_SIMULATE", folder.Write("profile.toml", "machine_type = \"chosen\"\n")},
         {"BMCI2C_ROOT", "/chosen/root"},
         {"BMCI2C_LOG_LEVEL", "1"}});
    ExpectSetting(settings.configFile, folder.File("platform.toml"), Origin::Environment);
    ExpectSetting<std::optional<std::string>>(settings.machineType, "chosen", Origin::Profile);
    ExpectSetting<std::string>(settings.root, "/chosen/root", Origin::Environment);
    ExpectSetting<std::string>(settings.log, "none", Origin::Environment);
    ExpectSetting(settings.logLevel, 1, Origin::Environment);
}

TEST_F(SettingsPrecedence, EmptyChosenVariable_LeavesThatOfTheProcessInForce) {
    UseEnvironment();
    ExpectSetting<std::string>(platform::ReadSettings({{"BMCI2C_ROOT", ""}}).root,
                               "/environment/root", Origin::Environment);
}

}  // namespace
