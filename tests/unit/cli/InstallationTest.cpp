#include <cli/Installation.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>

namespace cli {
namespace {

namespace fs = std::filesystem;

class Installation : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = testing::TempDir() + "installation-XXXXXX";
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        prefix = pattern;
    }
    void TearDown() override {
        ::unsetenv("BMCI2C_SCHEMA");
        fs::remove_all(prefix);
    }

    void Touch(const fs::path& file) const {
        fs::create_directories((prefix / file).parent_path());
        std::ofstream(prefix / file) << "x";
    }

    host::HostFiles Find(const std::string& module = "") const {
        return FindFiles(prefix / "bin", module);
    }

    fs::path prefix;
};

TEST_F(Installation, ModuleInLib_IsFoundFirst) {
    Touch("lib/libbmci2c.cmpi.so");
    Touch("lib/cmpi/libbmci2c.cmpi.so");
    EXPECT_EQ(Find().module, prefix / "lib/libbmci2c.cmpi.so");
}

TEST_F(Installation, ModuleAmongTheProvidersOfServers_IsFound) {
    Touch("lib/" BMCI2C_MULTIARCH "/cmpi/libbmci2c.cmpi.so");
    EXPECT_EQ(Find().module, prefix / "lib/" BMCI2C_MULTIARCH "/cmpi/libbmci2c.cmpi.so");
}

TEST_F(Installation, ModuleThatIsNowhere_IsNamedAtItsFirstPlace) {
    EXPECT_EQ(Find().module, prefix / "lib/libbmci2c.cmpi.so");
}

TEST_F(Installation, ModuleThatTheUserNames_IsTaken) {
    Touch("lib/libbmci2c.cmpi.so");
    EXPECT_EQ(Find("/other.so").module, "/other.so");
    EXPECT_EQ(Find("other.so").module, fs::current_path() / "other.so");
}

TEST_F(Installation, Schema_IsInShare) {
    EXPECT_EQ(Find().schema, prefix / "share/bmci2c/schema/bmci2c.mof");
    EXPECT_EQ(Find().registrations, prefix / "share/bmci2c/schema/bmci2c.reg");
}

TEST_F(Installation, SchemaFolderOfTheEnvironment_GoesBefore) {
    ::setenv("BMCI2C_SCHEMA", "/schemas", 1);
    EXPECT_EQ(Find().schema, "/schemas/bmci2c.mof");
    EXPECT_EQ(Find().registrations, "/schemas/bmci2c.reg");
}

}  // namespace
}  // namespace cli
