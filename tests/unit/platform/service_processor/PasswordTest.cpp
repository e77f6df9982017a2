#include <gtest/gtest.h>
#include <platform/service_processor/lan/Password.h>
#include <sys/stat.h>

#include <new>

#include "TemporaryFolder.h"
#include "TroubleOf.h"

namespace platform {
namespace {

constexpr std::size_t kLongest = 20;

std::optional<ThrownTrouble> TroubleWith(const std::string& file) {
    return TroubleOf([&] { Password(file, kLongest); });
}

ThrownTrouble Refused(const std::string& file, const std::string& why) {
    return {TroubleCode::PasswordFile, "The password file " + file + " " + why};
}

constexpr char kReplaceIt[] =
    " Set password_file to a file that only its owner may read, with the password in its first "
    "line.";

TEST(Password, NoFile_IsEmpty) { EXPECT_STREQ(Password().Text(), ""); }

TEST(Password, FileOfTwoLines_GivesTheFirst) {
    const TemporaryFolder folder;
    EXPECT_STREQ(Password(folder.Write("p", "secret\nmore\n"), kLongest).Text(), "secret");
}

TEST(Password, FileWithoutLineEnd_GivesAllOfIt) {
    const TemporaryFolder folder;
    EXPECT_STREQ(Password(folder.Write("p", "secret"), kLongest).Text(), "secret");
}

TEST(Password, LineEndOfWindows_IsNoPartOfThePassword) {
    const TemporaryFolder folder;
    EXPECT_STREQ(Password(folder.Write("p", "secret\r\n"), kLongest).Text(), "secret");
}

TEST(Password, BlanksInTheLine_ArePartOfThePassword) {
    const TemporaryFolder folder;
    EXPECT_STREQ(Password(folder.Write("p", " a b \n"), kLongest).Text(), " a b ");
}

TEST(Password, LongestLine_IsTaken) {
    const TemporaryFolder folder;
    EXPECT_STREQ(Password(folder.Write("p", std::string(20, 'x')), kLongest).Text(),
                 "xxxxxxxxxxxxxxxxxxxx");
}

TEST(Password, LineThatIsTooLong_IsRefusedWithoutShowingIt) {
    const TemporaryFolder folder;
    for (const std::size_t length : {21U, 255U, 256U, 4000U}) {
        const std::string file = folder.Write("p", std::string(length, 'x') + "\n");
        EXPECT_EQ(
            TroubleWith(file),
            Refused(file,
                    std::string("has more than 20 bytes in its first line, which is longer than a "
                                "password can be.") +
                        kReplaceIt));
    }
}

TEST(Password, EmptyFirstLine_IsRefused) {
    const TemporaryFolder folder;
    for (const char* text : {"", "\n", "\nsecret\n", "\r\n"}) {
        const std::string file = folder.Write("p", text);
        EXPECT_EQ(TroubleWith(file),
                  Refused(file, std::string("has no password in its first line.") + kReplaceIt));
    }
}

TEST(Password, MissingFile_IsRefusedWithTheReason) {
    const TemporaryFolder folder;
    const std::string file = folder.File("missing");
    EXPECT_EQ(
        TroubleWith(file),
        Refused(file, std::string("cannot be read: No such file or directory.") + kReplaceIt));
}

TEST(Password, Folder_IsRefused) {
    const TemporaryFolder folder;
    EXPECT_EQ(TroubleWith(folder.Path()),
              Refused(folder.Path(), std::string("is not a regular file.") + kReplaceIt));
}

TEST(Password, PipeWithoutWriter_IsRefusedWithoutWaiting) {
    const TemporaryFolder folder;
    const std::string file = folder.File("pipe");
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(TroubleWith(file), Refused(file, std::string("is not a regular file.") + kReplaceIt));
}

class PasswordFileMode : public testing::TestWithParam<std::pair<mode_t, std::string>> {};

TEST_P(PasswordFileMode, ReadableByOthers_IsRefusedWithTheMode) {
    const auto& [mode, shown] = GetParam();
    const TemporaryFolder folder;
    const std::string file = folder.Write("p", "secret\n");
    ASSERT_EQ(chmod(file.c_str(), mode), 0);
    EXPECT_EQ(TroubleWith(file), Refused(file, "may be read by others than its owner (mode " +
                                                   shown + "). Run: chmod 600 " + file));
}

INSTANTIATE_TEST_SUITE_P(Modes, PasswordFileMode,
                         testing::Values(std::pair<mode_t, std::string>{0644, "0644"},
                                         std::pair<mode_t, std::string>{0640, "0640"},
                                         std::pair<mode_t, std::string>{0604, "0604"},
                                         std::pair<mode_t, std::string>{0440, "0440"}));

TEST(Password, ReadableByItsOwnerOnly_IsTaken) {
    const TemporaryFolder folder;
    const std::string file = folder.Write("p", "secret\n");
    for (const mode_t mode : {0400U, 0600U, 0700U}) {
        ASSERT_EQ(chmod(file.c_str(), mode), 0);
        EXPECT_STREQ(Password(file, kLongest).Text(), "secret");
    }
}

TEST(Password, EndOfTheObject_WipesTheText) {
    const TemporaryFolder folder;
    alignas(Password) std::array<unsigned char, sizeof(Password)> memory{};
    Password* password = new (memory.data()) Password(folder.Write("p", "secret\n"), kLongest);
    ASSERT_STREQ(password->Text(), "secret");

    password->~Password();

    EXPECT_EQ(memory, (std::array<unsigned char, sizeof(Password)>{}));
}

}  // namespace
}  // namespace platform
