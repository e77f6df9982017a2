#include <memory>

#include "HostFixture.h"

namespace host {
namespace {

// Hosts of their own, so that their ends can be watched.
class LifetimeTest : public testing::Test {
protected:
    LifetimeTest() {
        module.TakeInterfaceCounts();
        module.SetCleanupAnswer(CMPI_RC_OK);
    }
    ~LifetimeTest() override { module.SetCleanupAnswer(CMPI_RC_OK); }

    const TestModule module;
    std::vector<Message> messages;
    std::unique_ptr<Host> host = std::make_unique<Host>(
        TestFiles(), [this](const Message& message) { messages.push_back(message); });
};

TEST_F(LifetimeTest, Interfaces_AreMadeAtFirstUseOnly) {
    EXPECT_EQ(module.TakeInterfaceCounts().made, 0);
    host->EnumerateInstances(PathTo("T_Widget"));
    EXPECT_EQ(module.TakeInterfaceCounts().made, 1);
    host->EnumerateInstances(PathTo("T_Widget"));
    EXPECT_EQ(module.TakeInterfaceCounts().made, 0);
    host->InvokeMethod(PathTo("T_Thing"), "Count", {});
    EXPECT_EQ(module.TakeInterfaceCounts().made, 1);
}

TEST_F(LifetimeTest, End_CleansUpEveryInterfaceThatWasMade) {
    host->InvokeMethod(PathTo("T_Thing"), "Count", {});
    host->AssociatorNames(PathTo("T_Thing", "one"), "T_Refused", "", "", "");
    EXPECT_EQ(module.TakeInterfaceCounts().made, 4);
    host.reset();
    EXPECT_EQ(module.TakeInterfaceCounts().cleanedUp, 4);
    EXPECT_TRUE(messages.empty());
}

TEST_F(LifetimeTest, FailingCleanup_IsLogged) {
    host->EnumerateInstances(PathTo("T_Widget"));
    module.SetCleanupAnswer(CMPI_RC_ERR_FAILED);
    host.reset();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].severity, CMPI_SEV_ERROR);
    EXPECT_EQ(messages[0].component, "T_Thing_Provider");
    EXPECT_EQ(messages[0].text,
              "The provider 'T_Thing_Provider' answered with code 1 and without a text.");
}

TEST_F(LifetimeTest, Clone_OutlivesItsRequest) {
    const Value text{CMPI_string, std::string("kept for later")};
    EXPECT_EQ(host->InvokeMethod(PathTo("T_Thing"), "Keep", {{"Text", text}}).status.code,
              CMPI_RC_OK);
    host->EnumerateInstances(PathTo("T_Thing"));
    const MethodResult kept = host->InvokeMethod(PathTo("T_Thing"), "Kept", {});
    EXPECT_EQ(std::get<std::string>(kept.returnValue.data), "kept for later");
}

TEST_F(LifetimeTest, CloneWithoutItsHost_CanStillBeReleased) {
    struct Kept {
        CMPIInstance* instance = nullptr;
    } kept;
    module.SetProbe(
        [](void* data, const CMPIBroker* broker, const CMPIContext*, const CMPIResult*) {
            const CMPIObjectPath* const path =
                broker->eft->newObjectPath(broker, "root/test", "T_Thing", nullptr);
            const CMPIInstance* const instance = broker->eft->newInstance(broker, path, nullptr);
            static_cast<Kept*>(data)->instance = instance->ft->clone(instance, nullptr);
        },
        &kept);
    host->InvokeMethod(PathTo("T_Thing"), "Probe", {});
    module.SetProbe(nullptr, nullptr);
    host.reset();
    ASSERT_TRUE(kept.instance);
    EXPECT_EQ(kept.instance->ft->release(kept.instance).rc, CMPI_RC_OK);
}

TEST_F(LifetimeTest, TwoHosts_ServeOneAfterTheOther) {
    host.reset();
    host = std::make_unique<Host>(TestFiles());
    EXPECT_EQ(host->EnumerateInstances(PathTo("T_Widget")).instances.size(), 1U);
}

TEST(ModuleLifetime, End_UnloadsTheModule) {
    {
        Host host(TestFiles());
        host.EnumerateInstances(PathTo("T_Widget"));
        EXPECT_TRUE(TestModule::IsLoaded());
    }
    EXPECT_FALSE(TestModule::IsLoaded());
}

TEST(ModuleLifetime, ModuleThatWantsToStay_Stays) {
    for (const CMPIrc answer : {CMPI_RC_DO_NOT_UNLOAD, CMPI_RC_NEVER_UNLOAD}) {
        auto host = std::make_unique<Host>(TestFiles());
        host->EnumerateInstances(PathTo("T_Widget"));
        {
            const TestModule module;
            module.SetCleanupAnswer(answer);
        }
        host.reset();
        EXPECT_TRUE(TestModule::IsLoaded());
    }
}

}  // namespace
}  // namespace host
