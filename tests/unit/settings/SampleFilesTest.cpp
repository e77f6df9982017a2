// The files that are shipped must be what the program reads.
#include <gmock/gmock.h>
#include <platform/settings/FileText.h>
#include <platform/settings/Settings.h>
#include <platform/settings/SettingsError.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <sstream>

#include "SettingsEnvironment.h"
#include "TemporaryFolder.h"

namespace {

using platform::Settings;

std::vector<std::string> ProfileNames() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(BMCI2C_DATA_DIR "/profiles"))
        names.push_back(entry.path().stem().string());
    return names;
}

class ShippedProfile : public testing::TestWithParam<std::string> {};

TEST_P(ShippedProfile, IsReadAndSaysWhatItShows) {
    const std::string path = BMCI2C_DATA_DIR "/profiles/" + GetParam() + ".toml";
    EXPECT_NO_THROW(platform::ReadSimulatedProfile(path));
    EXPECT_THAT(LinesOf(path).at(0), testing::StartsWith("# "));
}

std::string TestNameOf(const testing::TestParamInfo<std::string>& instance) {
    std::string name = instance.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Files, ShippedProfile, testing::ValuesIn(ProfileNames()), TestNameOf);

bool IsSetting(const std::string& line) {
    return line.size() > 1 && line[0] == '#' &&
           (line[1] == '[' || std::islower(static_cast<unsigned char>(line[1])) != 0);
}

// The sample with every setting's "#" taken away.
std::string SampleInForce() {
    std::string text;
    for (const std::string& line : LinesOf(BMCI2C_DATA_DIR "/platform.toml"))
        text += (IsSetting(line) ? line.substr(1) : line) + "\n";
    return text;
}

TEST(SampleSettings, AsShipped_ChangeNothing) {
    const SettingsEnvironment environment;
    environment.Set("BMCI2C_CONFIG", BMCI2C_DATA_DIR "/platform.toml");
    const Settings settings = platform::ReadSettings();
    EXPECT_EQ(settings.machineType.value, std::nullopt);
    EXPECT_FALSE(settings.controllers.value.has_value());
    EXPECT_EQ(settings.log.origin, platform::Origin::Default);
}

TEST(SampleSettings, WithEveryLineInForce_AreRead) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink(BMCI2C_DATA_DIR "/profiles", folder.File("profiles"));
    const SettingsEnvironment environment;
    environment.Set("BMCI2C_CONFIG", folder.Write("platform.toml", SampleInForce()));
    const Settings settings = platform::ReadSettings();
    EXPECT_EQ(settings.machineType.value, "7000");
    ASSERT_EQ(settings.controllers.value->size(), 3u);
    EXPECT_THAT(settings.controllers.value->at(2).workarounds,
                testing::ElementsAre("opensesspriv"));
}

// The keys that an error about an unknown one lists.
std::vector<std::string> AllowedKeys(const std::string& table) {
    const TemporaryFolder folder;
    const SettingsEnvironment environment;
    environment.Set("BMCI2C_CONFIG", folder.Write("platform.toml", table + "\nunknown = 1\n"));
    std::string error;
    try {
        platform::ReadSettings();
    } catch (const platform::SettingsError& caught) {
        error = caught.what();
    }
    std::istringstream list(error.substr(error.find("allowed are ") + 12));
    std::vector<std::string> keys;
    for (std::string word; list >> word;) {
        word.erase(word.find_last_not_of(",.") + 1);
        if (word != "and") keys.push_back(word);
    }
    return keys;
}

TEST(SampleSettings, EveryKeyThatIsAllowed_IsInTheSampleAndInTheDocument) {
    const std::string sample = SampleInForce();
    const std::string document = platform::ReadFileText(BMCI2C_DOCS_DIR "/platform-settings.md");
    std::size_t count = 0;
    for (const char* table : {"[machine]", "[diagnostics]", "[controllers]", "[log]",
                              "[[controllers.oxc]]\nmanufacturer = 1\nproduct = 1",
                              "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"",
                              "[[controller]]\ntransport = \"inband\"\ndevice = \"/dev/ipmi0\""}) {
        for (const std::string& key : AllowedKeys(table)) {
            EXPECT_THAT(sample, testing::ContainsRegex("[\n ]" + key + " = "));
            EXPECT_THAT(document, testing::HasSubstr("`" + key + "`"));
            ++count;
        }
    }
    EXPECT_EQ(count, 24u);
}

}  // namespace
