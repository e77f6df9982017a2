#include <cli/Spelling.h>
#include <gtest/gtest.h>

namespace cli {
namespace {

const std::vector<std::string> kCommands = {"run", "enumerate", "names", "info"};

TEST(Spelling, WrongMissingOrFurtherLetter_IsTheNearestWord) {
    EXPECT_EQ(Nearest("enumarate", kCommands), "enumerate");
    EXPECT_EQ(Nearest("name", kCommands), "names");
    EXPECT_EQ(Nearest("infos", kCommands), "info");
    EXPECT_EQ(Nearest("ernum", {"enum", "run"}), "enum");
}

TEST(Spelling, WordOfTwoWrongLetters_IsStillMeant) {
    EXPECT_EQ(Nearest("enumarete", kCommands), "enumerate");
    EXPECT_EQ(Nearest("enomarete", kCommands), "");
}

TEST(Spelling, WordOfWhichNoLetterIsRight_IsNotMeant) {
    EXPECT_EQ(Nearest("ab", {"xy"}), "");
    EXPECT_EQ(Nearest("", kCommands), "");
}

TEST(Spelling, OfEquallyNearWords_TheFirstIsMeant) {
    EXPECT_EQ(Nearest("rux", {"run", "rum"}), "run");
}

TEST(Spelling, LetterCase_MayBeIgnored) {
    EXPECT_EQ(NearestInAnyCase("NAMES", {"Caption", "Name"}), "Name");
    EXPECT_EQ(NearestInAnyCase("colour", {"Caption", "Name"}), "");
    EXPECT_EQ(Nearest("NAMES", {"Caption", "Name"}), "");
}

}  // namespace
}  // namespace cli
