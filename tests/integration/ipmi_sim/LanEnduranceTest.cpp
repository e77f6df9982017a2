// What many sessions leave behind: nothing.
#include <gmock/gmock.h>
#include <integration/ipmi_sim/IpmiSimulator.h>
#include <platform/service_processor/LanTransport.h>

#include "ProcessSize.h"

namespace {

// More than the sessions that the simulator has.
constexpr int kSessions = 1000;
constexpr int kSessionsBefore = 100;

TEST(LanEndurance, ManySessions_LeaveNoSessionDescriptorOrMemory) {
    const IpmiSimulator simulator("09: 00 01\n");
    const TemporaryFolder folder;
    platform::ControllerSettings controller;
    controller.transport = platform::TransportKind::Lan;
    controller.host = "127.0.0.1";
    controller.port = simulator.Port();
    controller.user = IpmiSimulator::kUser;
    controller.passwordFile = folder.Write("password", simulator.Password());
    controller.workarounds = {"opensesspriv"};

    ProcessSize before{};
    for (int session = 0; session < kSessions; ++session) {
        if (session == kSessionsBefore) before = ProcessSize::Now();
        platform::LanTransport transport(controller);
        const platform::IpmiAnswer answer =
            transport.Send({.netFn = 0x3A, .lun = 0, .command = 0x09},
                           platform::ShareFrom(platform::Now(), std::chrono::milliseconds(4000)));
        ASSERT_THAT(answer.data, testing::ElementsAre(0x01));
    }
    const ProcessSize after = ProcessSize::Now();

    EXPECT_EQ(after.descriptors, before.descriptors);
    EXPECT_LE(after.GrownFrom(before), kMemoryThatMayGrow);
}

}  // namespace
