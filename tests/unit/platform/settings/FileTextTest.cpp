#include <gtest/gtest.h>
#include <platform/settings/FileText.h>

#include <cerrno>
#include <system_error>

#include "TemporaryFolder.h"

namespace {

int ErrorOf(const std::string& path) {
    try {
        platform::ReadFileText(path);
    } catch (const std::system_error& error) {
        return error.code().value();
    }
    return 0;
}

TEST(FileText, AnyBytes_ComeAsTheyAre) {
    const TemporaryFolder folder;
    const std::string text("a\0b\r\n\xff", 6);
    EXPECT_EQ(platform::ReadFileText(folder.Write("file", text)), text);
}

TEST(FileText, LongestText_IsReadWhole) {
    const TemporaryFolder folder;
    const std::string text(platform::kLongestFileText, 'x');
    EXPECT_EQ(platform::ReadFileText(folder.Write("file", text)), text);
}

TEST(FileText, OneByteMore_IsTooLarge) {
    const TemporaryFolder folder;
    EXPECT_EQ(ErrorOf(folder.Write("file", std::string(platform::kLongestFileText + 1, 'x'))),
              EFBIG);
}

TEST(FileText, DeviceThatNeverEnds_IsTooLarge) { EXPECT_EQ(ErrorOf("/dev/zero"), EFBIG); }

TEST(FileText, AbsentFile_GivesTheSystemsReason) {
    EXPECT_EQ(ErrorOf(TemporaryFolder().File("absent")), ENOENT);
}

TEST(FileText, Folder_GivesTheSystemsReason) { EXPECT_EQ(ErrorOf("/"), EISDIR); }

}  // namespace
