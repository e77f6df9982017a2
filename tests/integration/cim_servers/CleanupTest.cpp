// Servers clean idle providers up, one interface after the other, and may use them again.
#include "ServerTest.h"

namespace {

using testing::Each;
using testing::SizeIs;

using Cleanup = ServerTest;

constexpr std::size_t kAllInterfaces = 57;

}  // namespace

FOR_EVERY_SERVER(Cleanup);

TEST_P(Cleanup, Interfaces_AreMadeInTheServersWay) {
    const std::size_t atTheStart = GetParam().makesInterfacesAtOnce ? kAllInterfaces : 0;
    EXPECT_THAT(server.CleanUp(false), SizeIs(atTheStart));
    Run();
    EXPECT_THAT(server.CleanUp(false), SizeIs(GetParam().makesInterfacesAtOnce ? atTheStart : 1));
}

TEST_P(Cleanup, OfIdleProviders_IsAnsweredNeverUnloadByAll_AndTheRecordStays) {
    EXPECT_TRUE(Run().IsOk());
    for (const std::string& className : server.ModuleClasses())
        server.EnumerateInstances(className);
    const std::string id = server.EnumerateInstances(kRecord).instances.at(0)["InstanceID"];
    for (int i = 0; i < 3; ++i) {
        EXPECT_THAT(server.CleanUp(false), Each(CMPI_RC_NEVER_UNLOAD));
        const Reply records = server.EnumerateInstances(kRecord);
        ASSERT_EQ(records.instances.size(), 1U);
        EXPECT_EQ(records.instances[0]["InstanceID"], id);
    }
}

TEST_P(Cleanup, OfIdleProviders_KeepsWhatAnAssociationProviderHolds) {
    constexpr char kSettings[] = "QUVSG_BMCI2C_ElementSetting";
    EXPECT_THAT(server.EnumerateInstances(kSettings).instances, SizeIs(1));
    server.CleanUp(false);
    EXPECT_THAT(server.EnumerateInstances(kSettings).instances, SizeIs(2));
    server.CleanUp(true);
    EXPECT_THAT(server.EnumerateInstances(kSettings).instances, SizeIs(1));
}

TEST_P(Cleanup, AtTheEnd_MayComeTwiceAndBeFollowedByRequests) {
    EXPECT_TRUE(Run().IsOk());
    EXPECT_THAT(server.CleanUp(true), Each(CMPI_RC_OK));
    EXPECT_THAT(server.CleanUp(true), Each(CMPI_RC_OK));
    EXPECT_THAT(server.EnumerateInstances(kRecord).instances, SizeIs(1));
    EXPECT_TRUE(Run().IsOk());
    EXPECT_TRUE(server.EnumerateInstances("QUVSG_BMCI2C_UseOfLog").IsOk());
}

TEST_P(Cleanup, AssociationInterfaceMadeFirst_IsServed) {
    EXPECT_TRUE(server.Make<CMPIAssociationMI>("QUVSG_BMCI2C_OwningJobElement"));
    EXPECT_TRUE(server.EnumerateInstances("QUVSG_BMCI2C_OwningJobElement").IsOk());
}
