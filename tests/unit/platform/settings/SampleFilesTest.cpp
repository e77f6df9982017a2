// The files that are shipped must be what the program reads.
#include <gmock/gmock.h>
#include <platform/settings/Settings.h>
#include <platform/settings/SettingsError.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <set>
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
    EXPECT_EQ(settings.machineTypeSource.replacement.value, R"(\1)");
    ASSERT_EQ(settings.controllers.value->size(), 3u);
    EXPECT_THAT(settings.controllers.value->at(2).workarounds,
                testing::ElementsAre("opensesspriv"));
}

using Keys = std::set<std::string>;  // "[table] key"

constexpr const char* kLan = "[[controller]] lan";
constexpr const char* kInBand = "[[controller]] inband";
constexpr const char* kSimulated = "[[controller]] simulated";

// The keys that an error about an unknown one lists.
void AddAllowed(const std::string& table, const std::string& text, Keys& keys) {
    const TemporaryFolder folder;
    folder.Write("profile.toml", "[[node]]\n");
    const SettingsEnvironment environment;
    environment.Set("BMCI2C_CONFIG", folder.Write("platform.toml", text + "\nunknown = 1\n"));
    std::string error;
    try {
        platform::ReadSettings();
    } catch (const platform::SettingsError& caught) {
        error = caught.what();
    }
    std::istringstream list(error.substr(error.find("allowed ")));
    std::string word;
    list >> word >> word;  // "allowed are", or "allowed is" before a single key
    while (list >> word) {
        word.erase(word.find_last_not_of(",.") + 1);
        if (word != "and") keys.insert(table + " " + word);
    }
}

Keys KeysOfTheReader() {
    Keys keys;
    for (const std::string table :
         {"[machine]", "[machine.type_source]", "[machine.bios_id_source]", "[diagnostics]",
          "[controllers]", "[cim]", "[log]"})
        AddAllowed(table, table, keys);
    AddAllowed("[[controllers.oxc]]", "[[controllers.oxc]]\nmanufacturer = 1\nproduct = 1", keys);
    AddAllowed(kLan, "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"", keys);
    AddAllowed(kInBand, "[[controller]]\ntransport = \"inband\"\ndevice = \"/dev/ipmi0\"", keys);
    AddAllowed(kSimulated, "[[controller]]\ntransport = \"simulated\"\nprofile = \"profile.toml\"",
               keys);
    // Tables, which have keys of their own.
    keys.erase("[machine] type_source");
    keys.erase("[machine] bios_id_source");
    return keys;
}

std::string TextBetween(const std::string& line, const std::string& begin, const std::string& end) {
    const std::size_t from = line.find(begin);
    if (from == std::string::npos) return "";
    const std::size_t to = line.find(end, from + begin.size());
    return line.substr(from + begin.size(), to - from - begin.size());
}

Keys KeysOfTheSample() {
    Keys keys;
    std::string table;
    for (const std::string& line : LinesOf(BMCI2C_DATA_DIR "/platform.toml")) {
        if (!IsSetting(line)) continue;
        if (line[1] == '[') {
            table = line.substr(1);
            continue;
        }
        const std::string key = TextBetween(line, "#", " = ");
        if (key == "transport") table = "[[controller]] " + TextBetween(line, "\"", "\"");
        keys.insert(table + " " + key);
        for (const std::string inner : {"manufacturer", "product"})
            if (line.find(" " + inner + " = ") != std::string::npos)
                keys.insert("[[controllers.oxc]] " + inner);
    }
    return keys;
}

// The first two cells of the rows that begin with a table, a transport, or nothing, in which case
// those above hold.
Keys KeysOfTheDocument() {
    Keys keys;
    std::string table;
    bool isInSection = false;
    for (const std::string& line : LinesOf(BMCI2C_DOCS_DIR "/platform-settings.md")) {
        if (line.starts_with("#")) table.clear();
        if (line.starts_with("## ")) isInSection = line == "## Settings file";
        if (!isInSection) continue;
        const std::string first = TextBetween(line, "| `", "` |");
        if (line.starts_with("| `[")) table = first;
        if (line.starts_with("| `\"")) table = "[[controller]] " + TextBetween(first, "\"", "\"");
        if (table.empty() || !line.starts_with("| ")) continue;
        const std::string key = TextBetween(line.substr(line.find('|', 1)), "| `", "` |");
        if (!key.empty()) keys.insert(table + " " + key);
    }
    // Said of all transports above their table.
    for (const char* const transport : {kLan, kInBand, kSimulated})
        keys.insert(std::string(transport) + " transport");
    return keys;
}

TEST(SampleSettings, KeysOfTheDocument_AreThoseOfTheReader) {
    EXPECT_EQ(KeysOfTheDocument(), KeysOfTheReader());
}

TEST(SampleSettings, KeysOfTheSample_AreThoseOfTheReader) {
    Keys sample = KeysOfTheSample();
    // Shown once for all controllers that may be silent.
    EXPECT_TRUE(sample.contains(std::string(kInBand) + " time_limit"));
    sample.insert(std::string(kLan) + " time_limit");
    EXPECT_EQ(sample, KeysOfTheReader());
}

TEST(SampleSettings, Reader_HasKeys) { EXPECT_GT(KeysOfTheReader().size(), 30u); }

}  // namespace
