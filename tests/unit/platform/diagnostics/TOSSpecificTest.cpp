#include <gmock/gmock.h>
#include <platform/diagnostics/TOSSpecific.h>

#include "RecordingLogger.h"
#include "ReplacedSettings.h"
#include "TemporaryFolder.h"

namespace {

using NQUVZDX20::TOSSpecific;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class TOSSpecificTest : public testing::Test {
protected:
    TOSSpecificTest() {
        replacedSettings = {};
        replacedSettings.machineTypeSource.folder.value = folder.File("dmi");
        replacedSettings.biosIdSource.folder.value = folder.File("dmi");
        std::filesystem::create_directory(folder.File("dmi"));
        recordedLines.clear();
    }
    ~TOSSpecificTest() override { replacedSettings = {}; }

    const TemporaryFolder folder;
};

TEST_F(TOSSpecificTest, SmbiosTexts_AreReadWithoutTrailingWhiteSpace) {
    folder.Write("dmi/product_name", "7000 Server \t \r\n");
    folder.Write("dmi/bios_version", " P7E100A\n\n");
    EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "7000 Server");
    EXPECT_EQ(TOSSpecific::GetBiosID(), " P7E100A");
    EXPECT_THAT(recordedLines, IsEmpty());
}

TEST_F(TOSSpecificTest, SmbiosTextsOfWhiteSpaceOnly_AreEmpty) {
    folder.Write("dmi/product_name", " \n");
    folder.Write("dmi/bios_version", "");
    EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "");
    EXPECT_EQ(TOSSpecific::GetBiosID(), "");
    EXPECT_THAT(recordedLines, IsEmpty());
}

TEST_F(TOSSpecificTest, Settings_ReplaceSmbiosWhichIsThenNotRead) {
    replacedSettings.machineType.value = "7000";
    replacedSettings.biosId.value = "";
    EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "7000");
    EXPECT_EQ(TOSSpecific::GetBiosID(), "");
    EXPECT_THAT(recordedLines, IsEmpty());
}

TEST_F(TOSSpecificTest, SourcesOfTheSettings_AreReadInstead) {
    std::filesystem::create_directory(folder.File("other"));
    replacedSettings.machineTypeSource.file.value = "board_name";
    replacedSettings.biosIdSource.folder.value = folder.File("other");
    folder.Write("dmi/board_name", "7001\n");
    folder.Write("other/bios_version", "P7E100B\n");
    EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "7001");
    EXPECT_EQ(TOSSpecific::GetBiosID(), "P7E100B");
}

TEST_F(TOSSpecificTest, Patterns_CutTheTexts) {
    replacedSettings.machineTypeSource.pattern.value = "^QUV ([0-9]+)$";
    replacedSettings.biosIdSource.pattern.value = "([A-Z])([0-9]+)";
    replacedSettings.biosIdSource.replacement.value = R"(\2-\1)";
    folder.Write("dmi/product_name", "QUV 7000 \n");
    folder.Write("dmi/bios_version", "BIOS P100\n");
    EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "7000");
    EXPECT_EQ(TOSSpecific::GetBiosID(), "100-P");
    EXPECT_THAT(recordedLines, IsEmpty());
}

TEST_F(TOSSpecificTest, PatternThatIsNotInTheText_LeavesTheTextAndALine) {
    replacedSettings.machineTypeSource.pattern.value = "^QUV ([0-9]+)";
    folder.Write("dmi/product_name", "Standard PC\n");
    EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "Standard PC");
    EXPECT_THAT(recordedLines,
                ElementsAre(Pair(2, "DMI: The text of " + folder.File("dmi/product_name") +
                                        ", \"Standard PC\", does not hold the pattern \"^QUV "
                                        "([0-9]+)\", so it is taken whole. Fix the key pattern "
                                        "under [machine.type_source] in the settings file.")));
}

TEST_F(TOSSpecificTest, EmptyText_NeedsNoPattern) {
    replacedSettings.biosIdSource.pattern.value = "x";
    folder.Write("dmi/bios_version", "\n");
    EXPECT_EQ(TOSSpecific::GetBiosID(), "");
    EXPECT_THAT(recordedLines, IsEmpty());
}

TEST_F(TOSSpecificTest, UnreadableMachineType_IsEmptyAndLeavesALine) {
    EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "");
    EXPECT_THAT(recordedLines,
                ElementsAre(Pair(2, "DMI: " + folder.File("dmi/product_name") +
                                        " cannot be read: No such file or directory. The key type "
                                        "under [machine] in the settings file can stand in for "
                                        "it.")));
}

TEST_F(TOSSpecificTest, UnreadableBiosId_IsEmptyAndLeavesALine) {
    std::filesystem::create_directory(folder.File("dmi/bios_version"));
    EXPECT_EQ(TOSSpecific::GetBiosID(), "");
    EXPECT_THAT(recordedLines,
                ElementsAre(Pair(2, "DMI: " + folder.File("dmi/bios_version") +
                                        " cannot be read: Is a directory. The key bios_id under "
                                        "[machine] in the settings file can stand in for it.")));
}

TEST_F(TOSSpecificTest, RootPath_ComesWithoutSlashesAtItsEnd) {
    const std::pair<const char*, const char*> roots[] = {
        {"/usr/share", "/usr/share"}, {"/usr/share/", "/usr/share"},
        {"share//", "share"},         {"/", ""},
        {"../share", "../share"},
    };
    for (const auto& [root, expected] : roots) {
        replacedSettings.root.value = root;
        EXPECT_EQ(TOSSpecific::GetZDXRootPath(), expected);
    }
}

TEST_F(TOSSpecificTest, FileSize_IsThatOfARegularFile) {
    EXPECT_EQ(TOSSpecific::GetFileSize(folder.Write("five", "12345")), 5u);
    EXPECT_EQ(TOSSpecific::GetFileSize(folder.Write("empty", "")), 0u);
}

TEST_F(TOSSpecificTest, FileSize_OfWhatIsNoFile_Is0) {
    EXPECT_EQ(TOSSpecific::GetFileSize(folder.File("absent")), 0u);
    EXPECT_EQ(TOSSpecific::GetFileSize(folder.File("dmi")), 0u);
    EXPECT_EQ(TOSSpecific::GetFileSize("/dev/zero"), 0u);
    EXPECT_EQ(TOSSpecific::GetFileSize(""), 0u);
}

TEST_F(TOSSpecificTest, OemBuild_IsWhatTheSettingsSay) {
    EXPECT_FALSE(TOSSpecific::isOEMBuild());
    replacedSettings.oemBuild.value = true;
    EXPECT_TRUE(TOSSpecific::isOEMBuild());
}

TEST_F(TOSSpecificTest, BrokenSettings_AreLogged) {
    replacedSettings.problem = "broken";
    TOSSpecific::isOEMBuild();
    EXPECT_THAT(recordedLines, ElementsAre(Pair(0, "Settings: broken")));
    replacedSettings.problem = "";
    TOSSpecific::isOEMBuild();
}

}  // namespace
