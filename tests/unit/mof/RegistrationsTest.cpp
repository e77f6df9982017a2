#include <gtest/gtest.h>
#include <mof/Reader.h>
#include <mof/generator/Registrations.h>

namespace {

TEST(Registrations, ClassesOfTheModule_HaveAStanzaEach) {
    const auto schema = mof::ReadText(
        "class CIM_Job { }; [Association] class CIM_Link { };"
        "class QUVSG_BMCI2C_Job : CIM_Job { }; class QUVSG_BMCI2C_Link : CIM_Link { };",
        "a.mof");
    EXPECT_EQ(mof::Registrations(schema), R"([QUVSG_BMCI2C_Job]
   provider: QUVSG_BMCI2C_Job_Provider
   location: bmci2c.cmpi
   type: instance method
   namespace: root/QUVSD
   unload: never

[QUVSG_BMCI2C_Link]
   provider: QUVSG_BMCI2C_Link_Provider
   location: bmci2c.cmpi
   type: instance method association
   namespace: root/QUVSD
   unload: never
)");
}

}  // namespace
