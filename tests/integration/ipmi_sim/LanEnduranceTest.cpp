// What many sessions leave behind: nothing.
#include <gmock/gmock.h>
#include <integration/ipmi_sim/IpmiSimulator.h>
#include <platform/service_processor/lan/LanTransport.h>

#include "ProcessSize.h"

namespace {

// More than the sessions that the simulator has.
constexpr int kSessions = 1000;
constexpr int kSessionsBefore = 100;

// Twice as many sessions are more than the simulator has.
constexpr int kRequestsInVain = 50;

platform::ControllerSettings ControllerOf(const IpmiSimulator& simulator,
                                          const TemporaryFolder& folder) {
    platform::ControllerSettings controller;
    controller.transport = platform::TransportKind::Lan;
    controller.host = "127.0.0.1";
    controller.port = simulator.Port();
    controller.user = IpmiSimulator::kUser;
    controller.passwordFile = folder.Write("password", simulator.Password());
    return controller;
}

constexpr platform::IpmiRequest BusStatus() { return {.netFn = 0x3A, .lun = 0, .command = 0x09}; }

// Each request opens two sessions.
TEST(LanEndurance, ManySilentCommands_LeaveNoSession) {
    const IpmiSimulator simulator("09: silent\n");
    const TemporaryFolder folder;
    const platform::ControllerSettings controller = ControllerOf(simulator, folder);
    for (int request = 0; request < kRequestsInVain; ++request) {
        try {
            platform::LanTransport(controller)
                .Send(BusStatus(),
                      platform::ShareFrom(platform::Now(), std::chrono::milliseconds(100)));
            FAIL() << "the command was answered";
        } catch (const platform::TransportError& error) {
            ASSERT_EQ(error.AsTrouble().code, "no_answer") << error.what();
            ASSERT_THAT(error.what(), testing::HasSubstr("did not answer the command"));
        }
    }
}

TEST(LanEndurance, ManySessions_LeaveNoSessionDescriptorOrMemory) {
    const IpmiSimulator simulator("09: 00 01\n");
    const TemporaryFolder folder;
    const platform::ControllerSettings controller = ControllerOf(simulator, folder);

    ProcessSize before{};
    for (int session = 0; session < kSessions; ++session) {
        if (session == kSessionsBefore) before = ProcessSize::Now();
        platform::LanTransport transport(controller);
        const platform::IpmiAnswer answer = transport.Send(
            BusStatus(), platform::ShareFrom(platform::Now(), std::chrono::milliseconds(4000)));
        ASSERT_THAT(answer.data, testing::ElementsAre(0x01));
    }
    const ProcessSize after = ProcessSize::Now();

    EXPECT_EQ(after.descriptors, before.descriptors);
    EXPECT_LE(after.GrownFrom(before), kMemoryThatMayGrow);
}

}  // namespace
