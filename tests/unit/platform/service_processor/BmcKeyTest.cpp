#include <gmock/gmock.h>
#include <platform/service_processor/lan/BmcKey.h>

#include <cstring>
#include <span>

#include "TemporaryFolder.h"
#include "TroubleOf.h"

namespace platform::lan {
namespace {

using testing::ElementsAre;

std::vector<int> BytesOf(const SecretBytes& key) {
    const auto* const bytes = static_cast<const unsigned char*>(key.Data());
    return {bytes, bytes + key.Length()};
}

std::vector<int> KeyOf(const std::string& line) {
    const TemporaryFolder folder;
    return BytesOf(ReadBmcKey(folder.Write("key", line + "\n")));
}

// What follows the file's name.
std::string WhyRefused(const std::string& line) {
    const TemporaryFolder folder;
    const std::string file = folder.Write("key", line + "\n");
    const auto thrown = TroubleOf([&] { ReadBmcKey(file); });
    if (!thrown) return "not refused";
    EXPECT_EQ(thrown->kind, TroubleCode::KeyFile);
    const std::string beginning = "The k_g file " + file + " ";
    EXPECT_TRUE(thrown->text.starts_with(beginning)) << thrown->text;
    return thrown->text.substr(beginning.size());
}

constexpr char kForms[] =
    " Write the key as 0x and up to 40 hexadecimal digits, two for each byte, or as a text of up "
    "to 20 bytes.";

TEST(BmcKey, NoFile_IsNoKey) {
    EXPECT_EQ(ReadBmcKey("").Data(), nullptr);
    EXPECT_EQ(ReadBmcKey("").Length(), 0U);
}

TEST(BmcKey, Text_IsTheKey) { EXPECT_THAT(KeyOf("abC"), ElementsAre('a', 'b', 'C')); }

TEST(BmcKey, HexadecimalDigits_AreBytes) {
    EXPECT_THAT(KeyOf("0x00fFa1"), ElementsAre(0x00, 0xFF, 0xA1));
}

TEST(BmcKey, LongestKeys_AreTaken) {
    EXPECT_EQ(KeyOf(std::string(20, 'x')), std::vector<int>(20, 'x'));
    EXPECT_EQ(KeyOf("0x" + std::string(40, '1')), std::vector<int>(20, 0x11));
}

TEST(BmcKey, OtherLines_AreRefusedWithoutShowingThem) {
    EXPECT_EQ(WhyRefused(std::string(21, 'x')),
              std::string("has a text of more than 20 bytes.") + kForms);
    for (const std::string digits : {"0x", "0x1", "0xag", "0x-1", "0x 1"}) {
        EXPECT_EQ(WhyRefused(digits),
                  std::string("has other than pairs of digits after 0x.") + kForms)
            << digits;
    }
    EXPECT_EQ(WhyRefused("0x" + std::string(42, '1')),
              "has more than 42 bytes in its first line, which is longer than a key can be. Set "
              "k_g_file to a file that only its owner may read, with the key in its first line.");
    EXPECT_EQ(WhyRefused(""),
              "has no key in its first line. Set k_g_file to a file that only its owner may read, "
              "with the key in its first line.");
}

}  // namespace
}  // namespace platform::lan
