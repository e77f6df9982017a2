#include <gmock/gmock.h>
#include <platform/settings/Settings.h>
#include <platform/settings/SettingsError.h>

#include <filesystem>

#include "ReplacedDefaultPaths.h"
#include "SettingsEnvironment.h"
#include "TemporaryFolder.h"

namespace {

using platform::ControllerProduct;
using platform::ControllerSettings;
using platform::Origin;
using platform::OxcFamily;
using platform::Settings;
using platform::TransportKind;
using testing::ElementsAre;
using testing::IsEmpty;

class SettingsOf : public testing::Test {
protected:
    Settings File(const std::string& text) {
        environment.Set("BMCI2C_CONFIG", folder.Write("platform.toml", text));
        return platform::ReadSettings();
    }

    ControllerSettings OnlyController(const std::string& text) {
        return File("[[controller]]\n" + text).controllers.value->at(0);
    }

    const TemporaryFolder folder;
    const SettingsEnvironment environment;
};

TEST_F(SettingsOf, NothingAtAll_AreTheDefaults) {
    const Settings settings = platform::ReadSettings();
    EXPECT_EQ(settings.configFile.value, "");
    EXPECT_EQ(settings.profileFile.value, "");
    EXPECT_EQ(settings.machineType.value, std::nullopt);
    EXPECT_EQ(settings.biosId.value, std::nullopt);
    EXPECT_EQ(settings.machineTypeSource.folder.value, "/sys/class/dmi/id");
    EXPECT_EQ(settings.machineTypeSource.file.value, "product_name");
    EXPECT_EQ(settings.machineTypeSource.pattern.value, std::nullopt);
    EXPECT_EQ(settings.machineTypeSource.replacement.value, std::nullopt);
    EXPECT_EQ(settings.biosIdSource.folder.value, "/sys/class/dmi/id");
    EXPECT_EQ(settings.biosIdSource.file.value, "bios_version");
    EXPECT_EQ(settings.root.value, kReplacedRoot);
    EXPECT_FALSE(settings.oemBuild.value);
    EXPECT_FALSE(settings.deriveAssociations.value);
    EXPECT_EQ(settings.oxc.value, OxcFamily(false));
    EXPECT_EQ(settings.timeLimit.value, 4);
    EXPECT_FALSE(settings.controllers.value.has_value());
    EXPECT_EQ(settings.log.value, "syslog");
    EXPECT_EQ(settings.logLevel.value, 2);
    EXPECT_EQ(settings.problem, "");
    EXPECT_EQ(settings.root.origin, Origin::Default);
    EXPECT_EQ(settings.controllers.origin, Origin::Default);
}

TEST_F(SettingsOf, EmptyFile_AreTheDefaults) {
    const Settings settings = File("");
    EXPECT_EQ(settings.timeLimit.origin, Origin::Default);
    EXPECT_FALSE(settings.controllers.value.has_value());
}

TEST_F(SettingsOf, NamedFile_SaysThatTheEnvironmentNamedIt) {
    const Settings settings = File("");
    EXPECT_EQ(settings.configFile.value, folder.File("platform.toml"));
    EXPECT_EQ(settings.configFile.origin, Origin::Environment);
}

TEST_F(SettingsOf, DefaultFile_IsReadWhenItIsThere) {
    replacedSettingsFile = folder.Write("default.toml", "[controllers]\noxc = true\n");
    const Settings settings = platform::ReadSettings();
    replacedSettingsFile = "/nonexistent/platform.toml";
    EXPECT_EQ(settings.oxc.value, OxcFamily(true));
    EXPECT_EQ(settings.configFile.value, folder.File("default.toml"));
    EXPECT_EQ(settings.configFile.origin, Origin::Default);
}

TEST_F(SettingsOf, FileWithEveryKey_HoldWhatItSays) {
    const Settings settings = File(R"(
[machine]
type = "7000"
bios_id = "P7E100A"
[machine.type_source]
folder = "/dmi"
file = "board_name"
pattern = '^QUV-([0-9]+)([A-Z])'
replacement = '\2\1'
[machine.bios_id_source]
file = "bios_release"
[diagnostics]
root = "/root/of/it"
oem_build = true
[controllers]
oxc = true
time_limit = 60
[cim]
derive_associations = true
[log]
sink = "json:/var/log/bmci2c.json"
level = 4
)");
    EXPECT_EQ(settings.machineType.value, "7000");
    EXPECT_EQ(settings.biosId.value, "P7E100A");
    EXPECT_EQ(settings.machineTypeSource.folder.value, "/dmi");
    EXPECT_EQ(settings.machineTypeSource.file.value, "board_name");
    EXPECT_EQ(settings.machineTypeSource.pattern.value, "^QUV-([0-9]+)([A-Z])");
    EXPECT_EQ(settings.machineTypeSource.replacement.value, R"(\2\1)");
    EXPECT_EQ(settings.biosIdSource.folder.value, "/sys/class/dmi/id");
    EXPECT_EQ(settings.biosIdSource.file.value, "bios_release");
    EXPECT_EQ(settings.root.value, "/root/of/it");
    EXPECT_TRUE(settings.oemBuild.value);
    EXPECT_EQ(settings.oxc.value, OxcFamily(true));
    EXPECT_EQ(settings.timeLimit.value, 60);
    EXPECT_TRUE(settings.deriveAssociations.value);
    EXPECT_EQ(settings.log.value, "json:/var/log/bmci2c.json");
    EXPECT_EQ(settings.logLevel.value, 4);
    for (const Origin origin :
         {settings.machineType.origin, settings.biosId.origin,
          settings.machineTypeSource.folder.origin, settings.machineTypeSource.file.origin,
          settings.machineTypeSource.pattern.origin, settings.machineTypeSource.replacement.origin,
          settings.biosIdSource.file.origin, settings.root.origin, settings.oemBuild.origin,
          settings.oxc.origin, settings.timeLimit.origin, settings.deriveAssociations.origin,
          settings.log.origin, settings.logLevel.origin})
        EXPECT_EQ(origin, Origin::File);
    EXPECT_EQ(settings.controllers.origin, Origin::Default);
    EXPECT_EQ(settings.biosIdSource.folder.origin, Origin::Default);
}

TEST_F(SettingsOf, KeyOfTheFile_SaysItsLine) {
    const Settings settings = File(R"([machine]
type = "7000"
[machine.type_source]

pattern = "x"
[controllers]
oxc = true
[[controller]]
transport = "inband"
device = "/dev/ipmi0"
[[controller]]
transport = "lan"
host = "bmc"
)");
    const std::string file = folder.File("platform.toml");
    EXPECT_EQ(settings.configFile.place, "BMCI2C_CONFIG");
    EXPECT_EQ(settings.machineType.place, file + ":2");
    EXPECT_EQ(settings.machineTypeSource.pattern.place, file + ":5");
    EXPECT_EQ(settings.oxc.place, file + ":7");
    EXPECT_EQ(settings.controllers.place, file + ":8");
    EXPECT_EQ(settings.biosId.place, "");
    EXPECT_THAT(
        settings.controllers.value->at(0).places,
        ElementsAre(std::pair("device", file + ":10"), std::pair("transport", file + ":9")));
    EXPECT_THAT(settings.controllers.value->at(1).places,
                ElementsAre(std::pair("host", file + ":13"), std::pair("transport", file + ":12")));
}

TEST_F(SettingsOf, EmptyMachineType_StandsInForSmbios) {
    EXPECT_EQ(File("[machine]\ntype = \"\"").machineType.value, "");
}

TEST_F(SettingsOf, RelativePathsInTheFile_StartAtItsFolder) {
    const Settings settings = File(R"(
[machine.bios_id_source]
folder = "dmi"
[diagnostics]
root = "share"
[log]
sink = "file:bmci2c.log"
[[controller]]
transport = "inband"
device = "ipmi0"
[[controller]]
transport = "lan"
host = "bmc"
password_file = "password"
k_g_file = "key"
)");
    EXPECT_EQ(settings.biosIdSource.folder.value, folder.File("dmi"));
    EXPECT_EQ(settings.root.value, folder.File("share"));
    EXPECT_EQ(settings.log.value, "file:" + folder.File("bmci2c.log"));
    EXPECT_EQ(settings.controllers.value->at(0).device, folder.File("ipmi0"));
    EXPECT_EQ(settings.controllers.value->at(1).passwordFile, folder.File("password"));
    EXPECT_EQ(settings.controllers.value->at(1).keyFile, folder.File("key"));
}

TEST_F(SettingsOf, RelativePathsInTheEnvironment_StandAsTheyAre) {
    environment.Set("BMCI2C_ROOT", "share");
    environment.Set("BMCI2C_LOG", "file:bmci2c.log");
    const Settings settings = platform::ReadSettings();
    EXPECT_EQ(settings.root.value, "share");
    EXPECT_EQ(settings.log.value, "file:bmci2c.log");
}

TEST_F(SettingsOf, SinksWithoutAPath_StandAsTheyAre) {
    for (const std::string sink : {"syslog", "stderr", "none"})
        EXPECT_EQ(File("[log]\nsink = \"" + sink + "\"").log.value, sink);
}

TEST_F(SettingsOf, OxcFamilyByProducts_HasThemAll) {
    const Settings settings = File(R"(
[controllers]
oxc = [{ manufacturer = 32473, product = 7 }, { manufacturer = 1048575, product = 65535 }]
)");
    EXPECT_EQ(settings.oxc.value, OxcFamily(std::vector<ControllerProduct>{
                                      {.manufacturer = 32473, .product = 7},
                                      {.manufacturer = 1048575, .product = 65535}}));
    EXPECT_EQ(settings.oxc.origin, Origin::File);
}

TEST_F(SettingsOf, OxcFamilyByProductsInTablesOfTheirOwn_HasThemAll) {
    EXPECT_EQ(File("[[controllers.oxc]]\nmanufacturer = 0\nproduct = 1\n").oxc.value,
              OxcFamily(std::vector<ControllerProduct>{{.manufacturer = 0, .product = 1}}));
}

TEST_F(SettingsOf, OxcFamilyWithoutProducts_IsEmpty) {
    EXPECT_EQ(File("[controllers]\noxc = []").oxc.value,
              OxcFamily(std::vector<ControllerProduct>{}));
}

TEST_F(SettingsOf, ControllerWithATimeLimit_HasItBesideThatOfAll) {
    const Settings settings = File(R"(
[controllers]
time_limit = 9
[[controller]]
transport = "inband"
device = "/dev/ipmi0"
time_limit = 1
[[controller]]
transport = "lan"
host = "bmc"
time_limit = 60
[[controller]]
transport = "lan"
host = "bmc"
)");
    EXPECT_EQ(settings.timeLimit.value, 9);
    EXPECT_EQ(settings.controllers.value->at(0).timeLimit, 1);
    EXPECT_EQ(settings.controllers.value->at(1).timeLimit, 60);
    EXPECT_EQ(settings.controllers.value->at(2).timeLimit, std::nullopt);
}

TEST_F(SettingsOf, InBandController_HasItsDevice) {
    const ControllerSettings controller =
        OnlyController("transport = \"inband\"\ndevice = \"/dev/ipmi1\"");
    EXPECT_EQ(controller.transport, TransportKind::InBand);
    EXPECT_EQ(controller.device, "/dev/ipmi1");
}

TEST_F(SettingsOf, LanControllerWithAHostOnly_HasTheDefaults) {
    const ControllerSettings controller = OnlyController("transport = \"lan\"\nhost = \"bmc\"");
    EXPECT_EQ(controller.transport, TransportKind::Lan);
    EXPECT_EQ(controller.host, "bmc");
    EXPECT_EQ(controller.port, 623);
    EXPECT_EQ(controller.user, "");
    EXPECT_EQ(controller.passwordFile, "");
    EXPECT_EQ(controller.keyFile, "");
    EXPECT_EQ(controller.protocol, "2.0");
    EXPECT_EQ(controller.cipherSuite, 3);
    EXPECT_EQ(controller.privilegeLevel, "administrator");
    EXPECT_THAT(controller.workarounds, IsEmpty());
}

TEST_F(SettingsOf, LanControllerWithEveryKey_HasWhatItSays) {
    const ControllerSettings controller = OnlyController(R"(
transport = "lan"
host = "127.0.0.1"
port = 65535
user = "diag"
password_file = "/etc/password"
k_g_file = "/etc/key"
protocol = "2.0"
cipher_suite = 17
privilege_level = "operator"
workarounds = ["opensesspriv", "intel20"]
)");
    EXPECT_EQ(controller.host, "127.0.0.1");
    EXPECT_EQ(controller.port, 65535);
    EXPECT_EQ(controller.user, "diag");
    EXPECT_EQ(controller.passwordFile, "/etc/password");
    EXPECT_EQ(controller.keyFile, "/etc/key");
    EXPECT_EQ(controller.protocol, "2.0");
    EXPECT_EQ(controller.cipherSuite, 17);
    EXPECT_EQ(controller.privilegeLevel, "operator");
    EXPECT_THAT(controller.workarounds, ElementsAre("opensesspriv", "intel20"));
}

TEST_F(SettingsOf, LanControllerOfProtocol15_TakesThatProtocolsWorkarounds) {
    const ControllerSettings controller = OnlyController(
        "transport = \"lan\"\nhost = \"bmc\"\nprotocol = \"1.5\"\nworkarounds = [\"idzero\"]");
    EXPECT_EQ(controller.protocol, "1.5");
    EXPECT_THAT(controller.workarounds, ElementsAre("idzero"));
}

TEST_F(SettingsOf, AbsentPasswordFile_IsNoErrorUntilItIsUsed) {
    EXPECT_EQ(OnlyController("transport = \"lan\"\nhost = \"bmc\"\npassword_file = \"/absent\"")
                  .passwordFile,
              "/absent");
}

TEST_F(SettingsOf, SimulatedController_PlaysTheNodeAtItsOwnPlace) {
    std::filesystem::create_directory(folder.File("profiles"));
    folder.Write("profiles/machine.toml",
                 "machine_type = \"1\"\ngeneration = 2\n[[node]]\n[[node]]\ndata = [7]\n");
    const Settings settings = File(R"(
[[controller]]
transport = "inband"
device = "/dev/ipmi0"
[[controller]]
transport = "simulated"
profile = "profiles/machine.toml"
)");
    const ControllerSettings& controller = settings.controllers.value->at(1);
    EXPECT_EQ(controller.transport, TransportKind::Simulated);
    EXPECT_THAT(controller.simulated->data, ElementsAre(7));
    EXPECT_EQ(controller.simulatedGeneration, 2);
    EXPECT_EQ(controller.profile, folder.File("profiles/machine.toml"));
    // Of such a profile only the node counts: the machine is this one.
    EXPECT_EQ(settings.machineType.value, std::nullopt);
    EXPECT_EQ(settings.profileFile.value, "");
}

TEST_F(SettingsOf, EmptyControllerArray_IsAMachineWithoutControllers) {
    const Settings settings = File("controller = []");
    ASSERT_TRUE(settings.controllers.value.has_value());
    EXPECT_THAT(*settings.controllers.value, IsEmpty());
    EXPECT_EQ(settings.controllers.origin, Origin::File);
}

}  // namespace
