#include <cli/doctor/CatalogChecks.h>

#include "CheckMatchers.h"
#include "TemporaryFolder.h"

namespace cli {
namespace {

using testing::ElementsAre;

class CatalogChecks : public testing::Test {
protected:
    std::string Write(const std::string& machines) const {
        return folder.Write("bmci2c.msg.xml",
                            "<bmci2cmsg version=\"1.0\">\n" + machines + "</bmci2cmsg>\n");
    }

    static std::string Entry(const std::string& type) {
        return "<machine type=\"" + type + "\">\n</machine>\n";
    }

    Check OfMachine(const std::string& machines, const CatalogMachine& machine) const {
        const Checks checks = CheckCatalog(Write(machines), machine);
        EXPECT_EQ(checks.size(), 2u);
        EXPECT_EQ(checks.at(0).grade, Grade::Ok);
        return checks.at(1);
    }

    const TemporaryFolder folder;
};

constexpr const char* kCatalog = "catalog";
constexpr const char* kMachine = "machine in the catalog";
constexpr const char* kMend = "Fix it; docs/catalog-guide.md explains how to write a catalog.";

TEST_F(CatalogChecks, CatalogThatIsRead_IsGoodWithItsNumberOfEntries) {
    const std::string path = Write(Entry("GENERIC_QUV") + Entry("7000"));
    EXPECT_THAT(CheckCatalog(path, {}),
                ElementsAre(Good(kCatalog, "The catalog " + path + " has 2 entries.")));
}

TEST_F(CatalogChecks, CatalogThatIsGone_IsBadAndAllThatIsSaid) {
    EXPECT_THAT(CheckCatalog("/absent/bmci2c.msg.xml", CatalogMachine{}),
                ElementsAre(Bad(kCatalog,
                                "The catalog /absent/bmci2c.msg.xml cannot be read: No such file "
                                "or directory.",
                                "Name the folder that holds bmci2c/bmci2c.msg.xml with the key "
                                "root under [diagnostics], with BMCI2C_ROOT or with --root.")));
}

TEST_F(CatalogChecks, CatalogThatIsAFolder_IsBad) {
    std::filesystem::create_directory(folder.File("folder"));
    EXPECT_EQ(CheckCatalog(folder.File("folder"), {}).at(0).text,
              "The catalog " + folder.File("folder") + " cannot be read: Is a directory.");
}

TEST_F(CatalogChecks, UnknownElement_IsBadWithItsLine) {
    const std::string path = Write("<colour></colour>\n" + Entry("GENERIC_QUV"));
    EXPECT_THAT(CheckCatalog(path, {}),
                ElementsAre(Bad(kCatalog,
                                "The catalog " + path +
                                    " has 1 error, the first in line 2: There is no element "
                                    "'colour'.",
                                "See 'bmci2c catalog check " + path + "' for all.")));
}

TEST_F(CatalogChecks, SyntaxError_IsBadWithItsLine) {
    const std::string path =
        folder.Write("bmci2c.msg.xml", "<bmci2cmsg version=\"1.0\">\n<machine\n");
    const Check check = CheckCatalog(path, {}).at(0);
    EXPECT_EQ(check.grade, Grade::Fail);
    EXPECT_EQ(check.text, "The catalog " + path +
                              " has 1 error, the first in line 2: Not well-formed XML: unclosed "
                              "token. Nothing from here on is read.");
}

TEST_F(CatalogChecks, NumberThatIsNone_IsBadWithItsLine) {
    const std::string path = Write(
        "<machine type=\"7000\">\n<property name=\"message\" index=\"x\">\n"
        "<value>text</value></property>\n</machine>\n");
    const Check check = CheckCatalog(path, {}).at(0);
    EXPECT_EQ(check.grade, Grade::Fail);
    EXPECT_EQ(check.text, "The catalog " + path +
                              " has 1 error, the first in line 3: The index 'x' is not decimal.");
}

TEST_F(CatalogChecks, CatalogWithoutMachines_IsBad) {
    const std::string path = Write("");
    EXPECT_THAT(CheckCatalog(path, {}),
                ElementsAre(Bad(kCatalog, "The catalog " + path + " has no machine.", kMend)));
}

TEST_F(CatalogChecks, ListedMachine_IsGood) {
    const std::string machines = Entry("GENERIC_QUV") + Entry("7000");
    EXPECT_EQ(OfMachine(machines, {"7000", "B", false}),
              Good(kMachine, "The catalog knows the machine type \"7000\"."));
    EXPECT_EQ(OfMachine(machines, {"A", "7000", false}),
              Good(kMachine, "The catalog knows the BIOS identifier \"7000\"."));
}

TEST_F(CatalogChecks, MachineThatIsNotListed_IsBad) {
    EXPECT_EQ(OfMachine(Entry("GENERIC_QUV") + Entry("7000"), {"7001", "b", false}),
              Bad(kMachine,
                  "The catalog knows neither the machine type \"7001\" nor the BIOS identifier "
                  "\"b\".",
                  "Add one of them to the catalog, or set the key type under [machine] in the "
                  "settings file to what the catalog calls this machine."));
}

TEST_F(CatalogChecks, MachineThatIsNotKnown_IsBad) {
    EXPECT_EQ(
        OfMachine(Entry("GENERIC_QUV") + Entry("7000"), {"", "", false}),
        Bad(kMachine,
            "Neither machine type nor BIOS identifier is known, so no entry of the catalog is "
            "this machine's.",
            "Fix those two checks first."));
}

Check NoGenericEntry(const std::string& entry) {
    return Bad(kMachine,
               "The catalog has no entry " + entry +
                   ", which holds the texts of machines without texts of their own.",
               "Add <machine type=\"" + entry + "\"> to the catalog.");
}

TEST_F(CatalogChecks, GenericEntryOfTheFamily_MustBeThere) {
    const std::string standard = Entry("GENERIC_QUV") + Entry("7000");
    const std::string oxc = Entry("GENERIC_QUV_OXC") + Entry("7000");
    EXPECT_EQ(OfMachine(standard, {"7000", "", false}).grade, Grade::Ok);
    EXPECT_EQ(OfMachine(oxc, {"7000", "", true}).grade, Grade::Ok);
    EXPECT_EQ(OfMachine(standard, {"7000", "", true}), NoGenericEntry("GENERIC_QUV_OXC"));
    EXPECT_EQ(OfMachine(oxc, {"7000", "", false}), NoGenericEntry("GENERIC_QUV"));
}

TEST_F(CatalogChecks, BrokenCatalog_IsNotSearchedForTheMachine) {
    const std::string path = folder.Write(
        "bmci2c.msg.xml", "<bmci2cmsg version=\"1.0\">\n" + Entry("7000") + "<machine\n");
    const Checks checks = CheckCatalog(path, CatalogMachine{"7000", "", false});
    ASSERT_EQ(checks.size(), 2u);
    EXPECT_EQ(checks[0].grade, Grade::Fail);
    EXPECT_EQ(checks[1],
              Bad(kMachine, "The catalog has errors, so it is not known which machines it lists.",
                  "Fix what the check \"catalog\" tells first."));
}

TEST_F(CatalogChecks, BrokenCatalogWithThisMachineBeforeTheError_KnowsIt) {
    const std::string path =
        folder.Write("bmci2c.msg.xml", "<bmci2cmsg version=\"1.0\">\n" + Entry("GENERIC_QUV") +
                                           Entry("7000") + "<machine\n");
    EXPECT_EQ(CheckCatalog(path, CatalogMachine{"7000", "", false}).at(1).grade, Grade::Ok);
}

TEST_F(CatalogChecks, FamilyByProducts_NeedsBothGenericEntries) {
    const CatalogMachine machine{"7000", "", std::vector<platform::ControllerProduct>{}};
    const std::string entries = Entry("GENERIC_QUV") + Entry("7000");
    EXPECT_EQ(OfMachine(entries, machine), NoGenericEntry("GENERIC_QUV_OXC"));
    EXPECT_EQ(OfMachine(entries + Entry("GENERIC_QUV_OXC"), machine).grade, Grade::Ok);
}

}  // namespace
}  // namespace cli
