#include <cimxml/access/Authenticator.h>
#include <cimxml/access/PasswordFile.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <openssl/evp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "QuickHash.h"

namespace cimxml {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class PasswordFileTest : public testing::Test {
protected:
    PasswordFileTest() {
        std::string pattern = testing::TempDir() + "passwords.XXXXXX";
        folder = ::mkdtemp(pattern.data());
        path = folder + "/passwords";
    }
    ~PasswordFileTest() override { std::filesystem::remove_all(folder); }

    void Write(const std::string& text, mode_t mode = 0600) const {
        std::ofstream(path) << text;
        ::chmod(path.c_str(), mode);
    }

    std::string Text() const {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    template <class Action>
    static std::string ErrorOf(const Action& action) {
        try {
            action();
        } catch (const SetupError& error) {
            return error.what();
        }
        return "";
    }

    std::string ReadError() const {
        return ErrorOf([&] { ReadPasswordFile(path); });
    }

    mode_t Mode() const {
        struct stat status {};
        ::stat(path.c_str(), &status);
        return status.st_mode & 0777;
    }

    std::string folder;
    std::string path;
};

TEST_F(PasswordFileTest, NewFile_IsItsOwnersOnly) {
    SetPassword(path, "ann", "sesame");
    EXPECT_EQ(Mode(), 0600U);
    const auto users = ReadPasswordFile(path);
    ASSERT_EQ(users.size(), 1U);
    EXPECT_EQ(users[0].name, "ann");
    EXPECT_EQ(HashLike("sesame", users[0].hash), users[0].hash);
    EXPECT_NE(HashLike("Sesame", users[0].hash), users[0].hash);
    EXPECT_EQ(Text().find("sesame"), std::string::npos);
}

TEST_F(PasswordFileTest, SamePasswordOfTwoUsers_HasTwoHashes) {
    SetPassword(path, "ann", "sesame");
    SetPassword(path, "bob", "sesame");
    const auto users = ReadPasswordFile(path);
    ASSERT_EQ(users.size(), 2U);
    EXPECT_NE(users[0].hash, users[1].hash);
}

TEST_F(PasswordFileTest, NewPassword_ReplacesTheUsersLineOnly) {
    SetPassword(path, "bob", "other");
    const std::string bob = Text();
    Write("# who may\n\nann:x\n" + bob, 0640);
    SetPassword(path, "ann", "sesame");
    EXPECT_THAT(Text(), StartsWith("# who may\n\nann:$"));
    EXPECT_THAT(Text(), HasSubstr("\n" + bob));
    EXPECT_EQ(Mode(), 0640U);
    EXPECT_EQ(ReadPasswordFile(path).size(), 2U);
}

TEST_F(PasswordFileTest, FileThatOthersCanRead_IsRefused) {
    SetPassword(path, "ann", "sesame");
    ::chmod(path.c_str(), 0604);
    EXPECT_EQ(ReadError(), "The password file '" + path +
                               "' is open to every user of this machine; say 'chmod o= " + path +
                               "'.");
}

TEST_F(PasswordFileTest, MissingFile_IsNamed) {
    EXPECT_EQ(ReadError(),
              "The password file '" + path + "' cannot be read: No such file or directory.");
}

TEST_F(PasswordFileTest, FileWithoutUsers_IsRefused) {
    Write("# nobody\n");
    EXPECT_EQ(ReadError(),
              "The password file '" + path + "' names no user; add one with 'bmci2c passwd'.");
}

TEST_F(PasswordFileTest, LineWithoutHash_IsNamed) {
    for (const char* line :
         {"ann", "ann:", ":hash", "ann:not a hash", "ann:*", "ann:sesame", "ann:$y$j9T$abc"}) {
        Write("# comment\n" + std::string(line) + "\n");
        EXPECT_EQ(ReadError(), "The password file '" + path +
                                   "' has no user and hash in line 2; write it with "
                                   "'bmci2c passwd'.")
            << line;
    }
}

TEST_F(PasswordFileTest, UnsafeHash_IsRefused) {
    for (const char* hash : {
             "abJnggxhB/yWI",                   // DES: cuts after 8 letters
             "$1$salt$qJH7.N4xYta3aEG/dfqo/0",  // MD5
             "$2b$05$CCCCCCCCCCCCCCCCCCCCC.E5YPO9kmyuRGyh0XouQYb4YMJKvyOeW",  // cuts after 72
             "$3$$8846f7eaee8fb117ad06bdd830b7586c",                          // no salt
             "$6$$BaRJ3rVqbjXuOPFmTjVpCbjdVkjfSGQYjGdxlQzYnOvFE6kHdVSLPH0hqwjOv5WJBYl4VLkIvRNpN",
             "$y$jMT$salt$hash",  // 16 GB
             "$y$j9T$$hash",      // no salt
         }) {
        Write("ann:" + std::string(hash) + "\n");
        EXPECT_THAT(ReadError(), HasSubstr("has a hash in line 1 that is not safe here")) << hash;
    }
}

TEST_F(PasswordFileTest, HashesOfDifferentKinds_AreRefused) {
    SetPassword(path, "ann", "sesame");
    Write(Text() + "bob:" + HashLike("x", kQuickHash) + "\n");
    EXPECT_THAT(ReadError(), HasSubstr("has hashes of different kinds, $y$j9T and $6$rounds=1000"));
}

TEST_F(PasswordFileTest, UserThatStandsTwice_IsNamed) {
    SetPassword(path, "ann", "sesame");
    const std::string ann = Text();
    Write("# one\n" + ann + "# two\n" + ann);
    const std::string expected = "The password file '" + path +
                                 "' names the user 'ann' twice, in lines 2 and 4; remove one of "
                                 "them.";
    EXPECT_EQ(ReadError(), expected);
    EXPECT_EQ(ErrorOf([&] { SetPassword(path, "ann", "new"); }), expected);
}

TEST_F(PasswordFileTest, WhatIsNoFile_IsLeftAlone) {
    const std::string expected = "The password file '" + path + "' is not a regular file.";
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(ErrorOf([&] { SetPassword(path, "ann", "sesame"); }), expected);
    EXPECT_EQ(ReadError(), expected);
    EXPECT_TRUE(std::filesystem::is_fifo(path));
}

TEST_F(PasswordFileTest, SymbolicLink_StaysOne) {
    const std::string link = folder + "/link";
    SetPassword(path, "ann", "sesame");
    std::filesystem::create_symlink("passwords", link);
    SetPassword(link, "bob", "other");
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(ReadPasswordFile(path).size(), 2U);
}

TEST_F(PasswordFileTest, WritersAtOnce_LoseNothing) {
    constexpr std::size_t kWriters = 8;
    {
        std::vector<std::jthread> writers;
        for (std::size_t number = 0; number < kWriters; ++number)
            writers.emplace_back(
                [&, number] { SetPassword(path, "user" + std::to_string(number), "x"); });
    }
    EXPECT_EQ(ReadPasswordFile(path).size(), kWriters);
}

TEST_F(PasswordFileTest, UnusableUserName_IsRefused) {
    for (const char* name : {"", "a:b", "#a", "a\nb"})
        EXPECT_THAT(ErrorOf([&] { SetPassword(path, name, "sesame"); }),
                    HasSubstr("cannot be used"))
            << name;
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(PasswordFileTest, EmptyPassword_IsRefused) {
    EXPECT_EQ(ErrorOf([&] { SetPassword(path, "ann", ""); }), "The password is empty.");
}

TEST_F(PasswordFileTest, PasswordThatCryptWouldCut_IsRefused) {
    EXPECT_EQ(ErrorOf([&] { SetPassword(path, "ann", std::string(512, 'a')); }),
              "The password is longer than 511 bytes.");
    EXPECT_EQ(ErrorOf([&] { SetPassword(path, "ann", std::string("a\0b", 3)); }),
              "The password holds a NUL character.");
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(PasswordFileTest, LongestUserAndPassword_AreRecognised) {
    const std::string user(kMostUserName, 'u');
    const std::string password(511, 'p');
    EXPECT_EQ(ErrorOf([&] { SetPassword(path, user + "u", password); }),
              "The user name is longer than 200 bytes.");
    SetPassword(path, user, password);
    const std::string credentials = user + ":" + password;
    std::string encoded((credentials.size() + 2) / 3 * 4 + 1, '\0');
    encoded.resize(static_cast<std::size_t>(
        EVP_EncodeBlock(reinterpret_cast<unsigned char*>(encoded.data()),
                        reinterpret_cast<const unsigned char*>(credentials.data()),
                        static_cast<int>(credentials.size()))));
    EXPECT_TRUE(Authenticator(ReadPasswordFile(path)).Authenticate("Basic " + encoded).isGranted);
}

TEST_F(PasswordFileTest, FolderThatIsMissing_IsNamed) {
    const std::string lost = folder + "/none/passwords";
    EXPECT_EQ(ErrorOf([&] { SetPassword(lost, "ann", "sesame"); }),
              "The password file '" + lost + "' cannot be written: No such file or directory.");
}

}  // namespace
}  // namespace cimxml
