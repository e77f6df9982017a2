#include <gtest/gtest.h>
#include <mof/generator/OutputFile.h>

#include <fstream>
#include <iterator>

#include "TemporaryFolder.h"

namespace {

std::string Content(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(OutputFile, InAMissingFolder_IsWritten) {
    const TemporaryFolder folder;
    mof::WriteIfChanged(folder.File("a/b.txt"), "text\n");
    EXPECT_EQ(Content(folder.File("a/b.txt")), "text\n");
}

TEST(OutputFile, WithTheSameContent_KeepsItsTime) {
    const TemporaryFolder folder;
    const auto file = folder.Write("a.txt", "same");
    const auto longAgo = std::filesystem::last_write_time(file) - std::chrono::hours(1);
    std::filesystem::last_write_time(file, longAgo);
    mof::WriteIfChanged(file, "same");
    EXPECT_EQ(std::filesystem::last_write_time(file), longAgo);
}

TEST(OutputFile, WithOtherContent_IsReplaced) {
    const TemporaryFolder folder;
    const auto file = folder.Write("a.txt", "a longer text");
    mof::WriteIfChanged(file, "text");
    EXPECT_EQ(Content(file), "text");
}

TEST(OutputFile, ThatCannotBeWritten_IsAnError) {
    const TemporaryFolder folder;
    folder.Write("a", "not a folder");
    const auto file = folder.File("a/b.txt");
    try {
        mof::WriteIfChanged(file, "text");
        FAIL() << "no error";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), "The file '" + file + "' cannot be written.");
    }
}

}  // namespace
