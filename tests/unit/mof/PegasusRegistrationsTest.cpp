#include <gtest/gtest.h>
#include <mof/Reader.h>
#include <mof/generator/PegasusRegistrations.h>

namespace {

TEST(PegasusRegistrations, ClassesOfTheModule_HaveAProviderWithItsCapabilitiesEach) {
    const auto schema = mof::ReadText(
        "class CIM_Job { }; [Association] class CIM_Link { };"
        "class QUVSG_BMCI2C_Job : CIM_Job { }; class QUVSG_BMCI2C_Link : CIM_Link { };",
        "a.mof");
    EXPECT_EQ(mof::PegasusRegistrations(schema, "1.2.3"), R"(instance of PG_ProviderModule {
    Name = "QUVSG_BMCI2C_DiagnosticService_Module";
    Vendor = "QUV";
    Version = "1.2.3";
    InterfaceType = "CMPI";
    InterfaceVersion = "2.0.0";
    Location = "bmci2c.cmpi";
};

instance of PG_Provider {
    ProviderModuleName = "QUVSG_BMCI2C_DiagnosticService_Module";
    Name = "QUVSG_BMCI2C_Job_Provider";
};
instance of PG_ProviderCapabilities {
    ProviderModuleName = "QUVSG_BMCI2C_DiagnosticService_Module";
    ProviderName = "QUVSG_BMCI2C_Job_Provider";
    CapabilityID = "QUVSG_BMCI2C_Job";
    ClassName = "QUVSG_BMCI2C_Job";
    Namespaces = {"root/QUVSD"};
    ProviderType = {2, 5};
    SupportedProperties = NULL;
    SupportedMethods = NULL;
};

instance of PG_Provider {
    ProviderModuleName = "QUVSG_BMCI2C_DiagnosticService_Module";
    Name = "QUVSG_BMCI2C_Link_Provider";
};
instance of PG_ProviderCapabilities {
    ProviderModuleName = "QUVSG_BMCI2C_DiagnosticService_Module";
    ProviderName = "QUVSG_BMCI2C_Link_Provider";
    CapabilityID = "QUVSG_BMCI2C_Link";
    ClassName = "QUVSG_BMCI2C_Link";
    Namespaces = {"root/QUVSD"};
    ProviderType = {2, 3, 5};
    SupportedProperties = NULL;
    SupportedMethods = NULL;
};
)");
}

}  // namespace
