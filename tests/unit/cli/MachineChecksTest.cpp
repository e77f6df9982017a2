#include <cli/doctor/MachineChecks.h>

#include "CheckMatchers.h"
#include "TemporaryFolder.h"

namespace cli {
namespace {

using platform::Settings;
using testing::ElementsAre;

class MachineChecks : public testing::Test {
protected:
    MachineChecks() {
        settings.machineTypeSource.folder.value = folder.File("");
        settings.machineTypeSource.folder.value.pop_back();
        settings.biosIdSource.folder.value = settings.machineTypeSource.folder.value;
    }

    const TemporaryFolder folder;
    Settings settings;
};

TEST_F(MachineChecks, TextsOfSmbios_AreGoodAndNameTheirFiles) {
    folder.Write("product_name", "7000\n");
    folder.Write("bios_version", "P7E100A\n");
    EXPECT_THAT(CheckSmbios(settings),
                ElementsAre(Good("machine type", "The machine type is \"7000\", says " +
                                                     folder.File("product_name") + "."),
                            Good("BIOS identifier", "The BIOS identifier is \"P7E100A\", says " +
                                                        folder.File("bios_version") + ".")));
}

TEST_F(MachineChecks, TextsOfTheSettings_NameTheirLines) {
    settings.machineType = {"7000", platform::Origin::File, "f.toml:2"};
    settings.biosId = {"B", platform::Origin::Profile, "p.toml:1"};
    EXPECT_THAT(
        CheckSmbios(settings),
        ElementsAre(Good("machine type", "The machine type is \"7000\", says f.toml:2."),
                    Good("BIOS identifier", "The BIOS identifier is \"B\", says p.toml:1.")));
}

TEST_F(MachineChecks, EmptyTexts_AreBad) {
    folder.Write("product_name", " \n");
    settings.biosId = {"", platform::Origin::File, "f.toml:3"};
    EXPECT_THAT(
        CheckSmbios(settings),
        ElementsAre(Bad("machine type",
                        "The machine type is empty, says " + folder.File("product_name") + ".",
                        "Set the key type under [machine] in the settings file."),
                    Bad("BIOS identifier", "The BIOS identifier is empty, says f.toml:3.",
                        "Set the key bios_id under [machine] in the settings file.")));
}

TEST_F(MachineChecks, TwoZeros_AreABiosIdentifierThatWasNeverSet) {
    folder.Write("product_name", "00\n");
    folder.Write("bios_version", "00\n");
    const Checks checks = CheckSmbios(settings);
    EXPECT_EQ(checks.at(0).grade, Grade::Ok);
    EXPECT_EQ(checks.at(1), Warning("BIOS identifier",
                                    "The BIOS identifier is \"00\", which stands for none, says " +
                                        folder.File("bios_version") + ".",
                                    "Set the key bios_id under [machine] in the settings file."));
}

TEST_F(MachineChecks, MissingBiosIdentifier_IsAWarningWhereTheMachineTypeIsKnown) {
    folder.Write("product_name", "7000\n");
    EXPECT_EQ(CheckSmbios(settings).at(1).grade, Grade::Warn);
    settings.biosId.value = "";
    EXPECT_EQ(CheckSmbios(settings).at(1).grade, Grade::Warn);
}

TEST_F(MachineChecks, MissingBiosIdentifier_IsBadWhereTheMachineTypeIsMissing) {
    EXPECT_EQ(CheckSmbios(settings).at(1).grade, Grade::Fail);
    folder.Write("product_name", "\n");
    settings.biosId.value = "00";
    EXPECT_EQ(CheckSmbios(settings).at(1).grade, Grade::Fail);
}

TEST_F(MachineChecks, TextThatCannotBeRead_IsBadWithItsReason) {
    settings.biosId.value = "B";
    EXPECT_EQ(CheckSmbios(settings).at(0),
              Bad("machine type",
                  folder.File("product_name") + " cannot be read: No such file or directory.",
                  "The key type under [machine] in the settings file can stand in for it."));
}

TEST_F(MachineChecks, TextWithoutThePattern_IsBad) {
    folder.Write("bios_version", "P7E100A\n");
    settings.machineType.value = "7000";
    settings.biosIdSource.pattern.value = "^Q";
    EXPECT_EQ(CheckSmbios(settings).at(1),
              Bad("BIOS identifier",
                  "The text of " + folder.File("bios_version") +
                      ", \"P7E100A\", does not hold the pattern \"^Q\", so it is taken whole.",
                  "Fix the key pattern under [machine.bios_id_source] in the settings file."));
}

}  // namespace
}  // namespace cli
