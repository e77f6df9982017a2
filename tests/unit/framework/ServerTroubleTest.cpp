// A CIM server that refuses what it is asked for.
#include "Adapter_Fixture.h"

namespace {

class ServerTrouble : public Adapter_Fixture {
protected:
    ServerTrouble() {
        fanScript.enumInstances = [this](const ACME_Fan*, auto* handler) {
            for (std::uint8_t i = 0; i < 3; ++i) handler->handle(make_fan("a", i));
            finished = true;
            return 0;
        };
    }

    bool finished = false;
};

}  // namespace

TEST_F(ServerTrouble, RefusedInstance_FailsAndTheRestIsDropped) {
    result.refusal = {CMPI_RC_ERR_ACCESS_DENIED, broker.arena.text("the client is gone")};
    EXPECT_EQ(to_text(enumerate_fans()),
              "1: ACME_Fan_Provider: enumerateInstances failed: the CIM server does not take an "
              "instance (code 2: the client is gone).");
    EXPECT_TRUE(finished);
    EXPECT_EQ(result.ends, 0);
}

TEST_F(ServerTrouble, RefusedPath_Fails) {
    result.refusal = {CMPI_RC_ERR_FAILED, nullptr};
    const CMPIStatus status = fans.instances->ft->enumerateInstanceNames(
        fans.instances, &context, &result, class_path("ACME_Fan"));
    EXPECT_EQ(
        to_text(status),
        "1: ACME_Fan_Provider: enumerateInstanceNames failed: the CIM server does not take an "
        "object path (code 1).");
}

TEST_F(ServerTrouble, ObjectPathThatIsNotMade_Fails) {
    broker.factories.newObjectPath = [](const CMPIBroker*, const char*, const char*,
                                        CMPIStatus* status) -> CMPIObjectPath* {
        status->rc = CMPI_RC_ERR_INVALID_CLASS;
        return nullptr;
    };
    EXPECT_EQ(to_text(enumerate_fans()),
              "1: ACME_Fan_Provider: enumerateInstances failed: the CIM server does not make an "
              "object path (code 5).");
}

TEST_F(ServerTrouble, InstanceThatIsSilentlyNotMade_Fails) {
    broker.factories.newInstance = [](const CMPIBroker*, const CMPIObjectPath*,
                                      CMPIStatus*) -> CMPIInstance* { return nullptr; };
    EXPECT_EQ(to_text(enumerate_fans()),
              "1: ACME_Fan_Provider: enumerateInstances failed: the CIM server does not make an "
              "instance (code 1).");
}

TEST_F(ServerTrouble, ServerWithoutUnneededTables_IsServed) {
    broker.mft = nullptr;
    broker.xft = nullptr;
    broker.bft = nullptr;
    fanScript.enumInstances = nullptr;
    EXPECT_EQ(to_text(enumerate_fans()), "0");
    EXPECT_EQ(to_text(fans.instances->ft->enumerateInstances(fans.instances, nullptr, &result,
                                                             class_path("ACME_Fan"), nullptr)),
              "0");
}
