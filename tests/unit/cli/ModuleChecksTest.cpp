#include <cli/ScopedVariable.h>
#include <cli/doctor/ModuleChecks.h>
#include <cli/doctor/ProviderChecks.h>

#include "CheckMatchers.h"
#include "TemporaryFolder.h"

namespace cli {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

constexpr const char* kRegistration =
    "[QUVSG_BMCI2C_Thing]\n   provider: QUVSG_BMCI2C_Thing_Provider\n   location: bmci2c.cmpi\n"
    "   type: instance method\n   namespace: root/QUVSD\n";

class ModuleChecks : public testing::Test {
protected:
    // With a module of other classes.
    host::HostFiles Files(const std::string& mof, const std::string& registrations) const {
        return {.module = BMCI2C_ANY_LIBRARY,
                .schema = folder.Write("bmci2c.mof", mof),
                .registrations = folder.Write("bmci2c.reg", registrations)};
    }

    const TemporaryFolder folder;
};

TEST_F(ModuleChecks, LibraryWithoutTheFunctions_LacksEachOfThem) {
    EXPECT_EQ(CheckModule(Files("class QUVSG_BMCI2C_Thing { };", kRegistration)).at(1),
              Bad("functions",
                  "The module lacks 3 of its 3 functions: cimple_module, "
                  "QUVSG_BMCI2C_Thing_Provider_Create_InstanceMI and "
                  "QUVSG_BMCI2C_Thing_Provider_Create_MethodMI.",
                  kReinstall));
}

TEST_F(ModuleChecks, LibraryWithoutManyFunctions_NamesTheFirst) {
    const std::string association =
        "[QUVSG_BMCI2C_Link]\n   provider: Link_Provider\n   location: bmci2c.cmpi\n"
        "   type: instance method association\n   namespace: root/QUVSD\n";
    EXPECT_EQ(
        CheckModule(Files("class QUVSG_BMCI2C_Thing { };", kRegistration + association)).at(1).text,
        "The module lacks 6 of its 6 functions: cimple_module, "
        "QUVSG_BMCI2C_Thing_Provider_Create_InstanceMI, "
        "QUVSG_BMCI2C_Thing_Provider_Create_MethodMI and Link_Provider_Create_InstanceMI, and "
        "2 more.");
}

TEST_F(ModuleChecks, RegisteredClasses_AreGood) {
    const host::HostFiles files = Files("class QUVSG_BMCI2C_Thing { };", kRegistration);
    EXPECT_EQ(CheckModule(files).at(0),
              Good("module", std::string("The module ") + BMCI2C_ANY_LIBRARY + " can be loaded."));
    EXPECT_EQ(CheckModule(files).at(2),
              Good("schema", "The MOF " + files.schema + " declares the 1 registered class."));
}

TEST_F(ModuleChecks, AssociationThatIsRegisteredAsNone_IsBad) {
    const host::HostFiles files = Files(
        "Qualifier Association : boolean = false, Scope(association);\n"
        "[Association] class QUVSG_BMCI2C_Thing { };",
        kRegistration);
    EXPECT_EQ(CheckModule(files).at(2),
              Bad("schema",
                  "The MOF " + files.schema + " and the registrations " + files.registrations +
                      " disagree: only one of MOF and registrations says that QUVSG_BMCI2C_Thing "
                      "is an association.",
                  kReinstall));
}

TEST_F(ModuleChecks, ClassesOfOneSideOnly_AreBad) {
    const host::HostFiles files =
        Files("class QUVSG_BMCI2C_Other { }; class CIM_Thing { };", kRegistration);
    EXPECT_EQ(CheckModule(files).at(2).text,
              "The MOF " + files.schema + " and the registrations " + files.registrations +
                  " disagree: the MOF does not declare the registered class QUVSG_BMCI2C_Thing and "
                  "no provider is registered for the class QUVSG_BMCI2C_Other.");
}

TEST_F(ModuleChecks, FilesThatAreGone_AreBadEach) {
    const Checks checks = CheckModule({.module = "/absent/module.so",
                                       .schema = "/absent/a.mof",
                                       .registrations = "/absent/a.reg"});
    ASSERT_EQ(checks.size(), 3u);
    EXPECT_THAT(checks[0].text, StartsWith("The provider module '/absent/module.so' cannot be "
                                           "loaded: "));
    for (const Check& check : checks) {
        EXPECT_EQ(check.grade, Grade::Fail);
        EXPECT_EQ(check.advice, kReinstall);
    }
}

TEST_F(ModuleChecks, ProvidersWithoutATemporaryFolder_AreNotAsked) {
    const ScopedVariable temporary("TMPDIR", "/absent");
    EXPECT_THAT(CheckProviders(Files("class QUVSG_BMCI2C_Thing { };", kRegistration)),
                ElementsAre(Bad("providers",
                                "The providers were not asked, because the folder for temporary "
                                "files cannot be used: No such file or directory.",
                                "Make room in it, or name another one with the variable TMPDIR.")));
}

TEST_F(ModuleChecks, ProvidersOfAModuleThatCannotBeLoaded_AreBad) {
    EXPECT_THAT(CheckProviders(Files("class QUVSG_BMCI2C_Other { };", kRegistration)),
                ElementsAre(Bad("providers",
                                "The registrations '" + folder.File("bmci2c.reg") +
                                    "' name the class 'QUVSG_BMCI2C_Thing', which the schema '" +
                                    folder.File("bmci2c.mof") + "' does not declare.",
                                kReinstall)));
}

}  // namespace
}  // namespace cli
