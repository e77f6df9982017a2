#include <gtest/gtest.h>
#include <platform/settings/DefaultPaths.h>

namespace {

TEST(DefaultPaths, SettingsFile_IsInEtc) {
    EXPECT_EQ(platform::DefaultSettingsFile(), "/etc/bmci2c/platform.toml");
}

TEST(DefaultPaths, Root_IsTheDataDirectoryOfTheInstallation) {
    EXPECT_EQ(platform::DefaultRoot(), EXPECTED_ROOT);
}

}  // namespace
