#include <gtest/gtest.h>
#include <platform/settings/DefaultPaths.h>

#include <filesystem>

#include "TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;

TEST(DefaultPaths, SettingsFile_IsInEtc) {
    EXPECT_EQ(platform::DefaultSettingsFile(), "/etc/bmci2c/platform.toml");
}

TEST(DefaultPaths, Roots_EndWithTheDataDirectoryOfTheInstallation) {
    EXPECT_EQ(platform::DefaultRoots().back(), EXPECTED_ROOT);
}

TEST(DefaultPaths, Roots_BeginWithThatOfThisProgramsFile) {
    // The build folder is laid out like an installation, and this program lies one folder below it.
    const fs::path build = fs::read_symlink("/proc/self/exe").parent_path().parent_path();
    ASSERT_TRUE(fs::exists(build / "share/bmci2c/bmci2c.msg.xml"));
    EXPECT_EQ(platform::DefaultRoots().front(), build / "share");
}

TEST(RootAround, AnyDepthOfAnInstallation_FindsTheCatalog) {
    const TemporaryFolder prefix;
    prefix.Write("share/bmci2c/bmci2c.msg.xml", "");
    for (const char* file : {"bin/x", "lib/x.so", "lib64/cmpi/x.so", "lib/multi-arch/cmpi/x.so"})
        EXPECT_EQ(platform::RootAround(prefix.File(file)), prefix.File("share")) << file;
}

TEST(RootAround, TwoInstallationsInOneAnother_FindsTheInnerOne) {
    const TemporaryFolder prefix;
    prefix.Write("share/bmci2c/bmci2c.msg.xml", "");
    prefix.Write("local/share/bmci2c/bmci2c.msg.xml", "");
    EXPECT_EQ(platform::RootAround(prefix.File("local/lib/x.so")), prefix.File("local/share"));
}

TEST(RootAround, FolderWithoutCatalog_FindsNone) {
    const TemporaryFolder prefix;
    EXPECT_EQ(platform::RootAround(prefix.File("a/b/c/d/x.so")), std::nullopt);
}

}  // namespace
