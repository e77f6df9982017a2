// ElementSetting delivers one association more at each enumeration, by whatever request it comes.
#include <gtest/gtest.h>
#include <host/Host.h>

namespace {

class ElementSettingGrowth : public testing::Test {
protected:
    std::size_t Names() {
        const host::NamesResult result = module.EnumerateInstanceNames(classPath);
        EXPECT_TRUE(result.status.IsOk());
        return result.names.size();
    }
    std::size_t Instances() {
        const host::InstancesResult result = module.EnumerateInstances(classPath);
        EXPECT_TRUE(result.status.IsOk());
        return result.instances.size();
    }

    const host::ObjectPath classPath{"root/QUVSD", "QUVSG_BMCI2C_ElementSetting", {}};
    host::Host module{{.module = BMCI2C_MODULE,
                       .schema = BMCI2C_SCHEMA "/bmci2c.mof",
                       .registrations = BMCI2C_SCHEMA "/bmci2c.reg"}};
};

}  // namespace

TEST_F(ElementSettingGrowth, EnumeratingNames_CountsAsAnEnumeration) {
    EXPECT_EQ(Names(), 1U);
    EXPECT_EQ(Names(), 2U);
    EXPECT_EQ(Instances(), 3U);
    EXPECT_EQ(Names(), 4U);
}

TEST_F(ElementSettingGrowth, ReferencesOfTheService_AreDerivedByAnEnumeration) {
    const host::InstancesResult services =
        module.EnumerateInstances({"root/QUVSD", "QUVSG_BMCI2C_DiagnosticService", {}});
    ASSERT_EQ(services.instances.size(), 1U);
    const host::NamesResult references =
        module.ReferenceNames(services.instances[0].path, "QUVSG_BMCI2C_ElementSetting", "Element");
    EXPECT_TRUE(references.status.IsOk());
    EXPECT_EQ(references.names.size(), 1U);
    EXPECT_EQ(Instances(), 2U);
}
