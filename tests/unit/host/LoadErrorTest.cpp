#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "HostFixture.h"

namespace host {
namespace {

class LoadErrorTest : public testing::Test {
protected:
    LoadErrorTest() { std::filesystem::create_directory(folder); }
    ~LoadErrorTest() override { std::filesystem::remove_all(folder); }

    std::string Write(const std::string& name, const std::string& text) const {
        const auto path = folder / name;
        std::ofstream(path) << text;
        return path.string();
    }

    std::string WriteStanza(const std::string& className, const std::string& provider,
                            const std::string& type) const {
        return Write("a.reg", "[" + className + "]\nprovider: " + provider +
                                  "\nlocation: hosttest.cmpi\ntype: " + type +
                                  "\nnamespace: root/test\n");
    }

    static std::string ErrorOf(const HostFiles& files) {
        try {
            const Host host(files);
        } catch (const LoadError& error) {
            return error.what();
        }
        return "no error";
    }

    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("host_test_" + std::to_string(getpid()));
    HostFiles files = TestFiles();
};

TEST_F(LoadErrorTest, GoodFiles_Load) { EXPECT_EQ(ErrorOf(files), "no error"); }

TEST_F(LoadErrorTest, MissingModule_IsNamed) {
    files.module = "/nowhere/libx.cmpi.so";
    EXPECT_EQ(ErrorOf(files),
              "The provider module '/nowhere/libx.cmpi.so' cannot be loaded: cannot open shared "
              "object file: No such file or directory.");
}

TEST_F(LoadErrorTest, ModuleThatIsNoLibrary_IsNamed) {
    files.module = Write("libx.cmpi.so", std::string(100, 'x'));
    EXPECT_EQ(ErrorOf(files),
              "The provider module '" + files.module + "' cannot be loaded: invalid ELF header.");
}

TEST_F(LoadErrorTest, ModuleGivenByABareName_IsLookedForInTheWorkingFolder) {
    files.module = "libnone.cmpi.so";
    const auto path = std::filesystem::current_path() / files.module;
    EXPECT_EQ(ErrorOf(files), "The provider module '" + path.string() +
                                  "' cannot be loaded: cannot open shared object file: No such "
                                  "file or directory.");
}

TEST_F(LoadErrorTest, MissingFactory_IsNamedWithItsClass) {
    files.registrations = WriteStanza("T_Thing", "T_Other_Provider", "method");
    EXPECT_EQ(ErrorOf(files), "The provider module '" + files.module +
                                  "' has no function 'T_Other_Provider_Create_MethodMI', which "
                                  "the registration of the class 'T_Thing' demands.");
}

TEST_F(LoadErrorTest, MissingAssociationFactory_IsNamedWithItsClass) {
    files.registrations = WriteStanza("T_Thing", "T_Thing_Provider", "instance association");
    EXPECT_EQ(ErrorOf(files), "The provider module '" + files.module +
                                  "' has no function 'T_Thing_Provider_Create_AssociationMI', "
                                  "which the registration of the class 'T_Thing' demands.");
}

TEST_F(LoadErrorTest, MissingRegistrations_AreNamed) {
    files.registrations = "/nowhere/a.reg";
    EXPECT_EQ(ErrorOf(files),
              "The registrations '/nowhere/a.reg' cannot be read: No such file or directory.");
}

TEST_F(LoadErrorTest, ClassThatTheSchemaLacks_IsNamed) {
    files.registrations = WriteStanza("T_Nothing", "T_Thing_Provider", "instance");
    EXPECT_EQ(ErrorOf(files), "The registrations '" + files.registrations +
                                  "' name the class 'T_Nothing', which the schema '" +
                                  files.schema + "' does not declare.");
}

TEST_F(LoadErrorTest, TwoLocations_AreNamed) {
    files.registrations = Write("a.reg",
                                "[T_Thing]\nprovider: P\nlocation: a\ntype: method\nnamespace: n\n"
                                "[T_Link]\nprovider: P\nlocation: b\ntype: method\nnamespace: n\n");
    EXPECT_EQ(ErrorOf(files), "The registrations '" + files.registrations +
                                  "' name the locations 'a' and 'b', but the host loads one "
                                  "module.");
}

TEST_F(LoadErrorTest, BrokenSchema_IsNamedWithItsPlace) {
    files.schema = Write("a.mof", "class A {\n  strin Name;\n};\n");
    const std::string error = ErrorOf(files);
    EXPECT_EQ(error.rfind("The schema cannot be read: " + files.schema + ":2:3: ", 0), 0U) << error;
}

TEST_F(LoadErrorTest, MissingSchema_IsNamed) {
    files.schema = "/nowhere/a.mof";
    const std::string error = ErrorOf(files);
    EXPECT_EQ(error.rfind("The schema cannot be read: ", 0), 0U) << error;
    EXPECT_NE(error.find("/nowhere/a.mof"), std::string::npos) << error;
}

}  // namespace
}  // namespace host
