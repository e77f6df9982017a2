#include <cimxml/access/Authenticator.h>
#include <cimxml/access/PasswordFile.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <openssl/evp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

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
    EXPECT_TRUE(Authenticator(ReadPasswordFile(path)).Judge("Basic " + encoded).isGranted);
}

TEST_F(PasswordFileTest, FolderThatIsMissing_IsNamed) {
    const std::string lost = folder + "/none/passwords";
    EXPECT_EQ(ErrorOf([&] { SetPassword(lost, "ann", "sesame"); }),
              "The password file '" + lost + "' cannot be written: No such file or directory.");
}

}  // namespace
}  // namespace cimxml
