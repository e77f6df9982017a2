#include <cli/doctor/SettingsChecks.h>
#include <sys/stat.h>

#include "CheckMatchers.h"
#include "TemporaryFolder.h"

namespace cli {
namespace {

using platform::Settings;
using testing::ElementsAre;

class SettingsChecks : public testing::Test {
protected:
    std::string Write(const std::string& name, const std::string& text, mode_t mode) const {
        const std::string path = folder.Write(name, text);
        ::chmod(path.c_str(), mode);
        return path;
    }

    Checks OfPasswordFile(const std::string& file, const std::string& protocol = "2.0") const {
        platform::ControllerSettings controller;
        controller.passwordFile = file;
        controller.protocol = protocol;
        return OfLanController(controller);
    }

    Checks OfKeyFile(const std::string& file) const {
        platform::ControllerSettings controller;
        controller.keyFile = file;
        return OfLanController(controller);
    }

    // It is number 1.
    static Checks OfLanController(platform::ControllerSettings controller) {
        controller.transport = platform::TransportKind::Lan;
        Settings settings;
        settings.controllers.value = {{}, controller};
        Checks checks = CheckSettings(settings);
        EXPECT_EQ(checks.size(), 2u);
        checks.erase(checks.begin());
        return checks;
    }

    const TemporaryFolder folder;
};

constexpr const char* kPasswordFile = "password file of controller 1";

TEST_F(SettingsChecks, NoFile_IsGood) {
    EXPECT_THAT(CheckSettings({}),
                ElementsAre(Good("settings",
                                 "There is no settings file /etc/bmci2c/platform.toml, "
                                 "so the defaults hold.")));
}

TEST_F(SettingsChecks, FileThatOnlyItsOwnerWrites_IsGood) {
    Settings settings;
    settings.configFile.value = Write("platform.toml", "", 0644);
    EXPECT_THAT(CheckSettings(settings),
                ElementsAre(Good("settings", "The settings file " + folder.File("platform.toml") +
                                                 " is right.")));
}

TEST_F(SettingsChecks, FileThatOthersMayWrite_IsBad) {
    Settings settings;
    for (const mode_t mode : {0664, 0646}) {
        settings.configFile.value = Write("platform.toml", "", mode);
        EXPECT_THAT(CheckSettings(settings),
                    ElementsAre(Bad("settings",
                                    "The settings file " + folder.File("platform.toml") +
                                        " is writable by users other than its owner.",
                                    "Run: chmod go-w " + folder.File("platform.toml"))));
    }
}

TEST_F(SettingsChecks, DeviceAsAFile_IsNobodysToWrite) {
    Settings settings;
    settings.configFile.value = "/dev/null";
    EXPECT_EQ(CheckSettings(settings).at(0).grade, Grade::Ok);
}

TEST_F(SettingsChecks, Problem_IsAllThatIsSaid) {
    Settings settings;
    settings.profileFile.value = "/p.toml";
    settings.problem = "f.toml:1:2: key 'x': found 1, allowed is 2.";
    settings.problemAdvice = "Correct it.";
    EXPECT_THAT(CheckSettings(settings),
                ElementsAre(Bad("settings", settings.problem, "Correct it.")));
}

TEST_F(SettingsChecks, Profile_IsNamed) {
    Settings settings;
    settings.profileFile.value = "/p.toml";
    EXPECT_EQ(CheckSettings(settings).at(1),
              Good("profile", "The profile /p.toml is right; its machine is simulated."));
}

TEST_F(SettingsChecks, LogThatCanBeWritten_IsGood) {
    Settings settings;
    settings.log.value = "json:" + folder.File("new.log");
    EXPECT_EQ(CheckSettings(settings).at(1),
              Good("log", "The log " + folder.File("new.log") + " can be written."));
}

TEST_F(SettingsChecks, LogThatCannotBeWritten_IsBadWithItsReason) {
    const std::string advice = "Name another one with the key sink under [log] or with BMCI2C_LOG.";
    Settings settings;
    settings.log.value = "file:" + folder.File("absent/new.log");
    EXPECT_EQ(CheckSettings(settings).at(1),
              Bad("log",
                  "The log " + folder.File("absent/new.log") +
                      " cannot be written: No such file or directory.",
                  advice));
    std::filesystem::create_directory(folder.File("folder"));
    settings.log.value = "file:" + folder.File("folder");
    EXPECT_EQ(CheckSettings(settings).at(1),
              Bad("log", "The log " + folder.File("folder") + " cannot be written: Is a directory.",
                  advice));
}

TEST_F(SettingsChecks, PasswordFileOfItsOwner_IsGoodAndKeepsItsSecret) {
    const std::string file = Write("secret", "sesame\n", 0600);
    EXPECT_THAT(OfPasswordFile(file),
                ElementsAre(Good(kPasswordFile, "The password file " + file +
                                                    " can be read, by its owner only.")));
}

TEST_F(SettingsChecks, PasswordFileThatOthersMayRead_IsBad) {
    const std::string file = Write("secret", "sesame\n", 0640);
    EXPECT_THAT(OfPasswordFile(file),
                ElementsAre(Bad(kPasswordFile,
                                "The password file " + file +
                                    " may be read by others than its owner (mode 0640).",
                                "Run: chmod 600 " + file)));
}

TEST_F(SettingsChecks, PasswordFileThatIsGone_IsBad) {
    EXPECT_THAT(OfPasswordFile("/absent/secret"),
                ElementsAre(Bad(kPasswordFile,
                                "The password file /absent/secret cannot be read: No such file or "
                                "directory.",
                                "Set password_file to a file that only its owner may read, with "
                                "the password in its first line.")));
}

TEST_F(SettingsChecks, KeyFile_IsLookedAtAsAPasswordFileIs) {
    EXPECT_THAT(
        OfKeyFile(Write("key", "0x00ff\n", 0600)),
        ElementsAre(Good("k_g file of controller 1", "The k_g file " + folder.File("key") +
                                                         " can be read, by its owner only.")));
    EXPECT_THAT(OfKeyFile("/absent/key"),
                ElementsAre(Bad("k_g file of controller 1",
                                "The k_g file /absent/key cannot be read: No such file or "
                                "directory.",
                                "Set k_g_file to a file that only its owner may read, with the key "
                                "in its first line.")));
}

TEST_F(SettingsChecks, PasswordLongerThanItsProtocolTakes_IsBadWithoutShowingIt) {
    const std::string file = Write("secret", "seventeen letters\n", 0600);
    EXPECT_EQ(OfPasswordFile(file).at(0).grade, Grade::Ok);
    const Check check = OfPasswordFile(file, "1.5").at(0);
    EXPECT_EQ(check.grade, Grade::Fail);
    EXPECT_THAT(check.text, testing::HasSubstr("has more than 16 bytes"));
    EXPECT_THAT(check.text + check.advice, testing::Not(testing::HasSubstr("seventeen")));
}

}  // namespace
}  // namespace cli
