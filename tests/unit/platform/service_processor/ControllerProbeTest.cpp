#include <fakes/FakeDiagnostics.h>
#include <gmock/gmock.h>
#include <platform/service_processor/ControllerProbe.h>

#include "NodeWith.h"
#include "TemporaryFolder.h"

namespace platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// No other test asks this node, so that its count of requests begins at 0.
constexpr int kNode = 1201;
constexpr std::chrono::milliseconds kProbeLimit{1000};

ProbeResult Probe(const SimulatedNode& node, int number = kNode) {
    ControllerSettings controller;
    controller.transport = TransportKind::Simulated;
    controller.simulated = std::make_shared<SimulatedNode>(node);
    return ProbeController(controller, number, kProbeLimit);
}

TEST(ControllerProbe, ControllerThatAnswers_NamesItself) {
    const ProbeResult result = Probe({});
    EXPECT_EQ(result.trouble, Trouble());
    EXPECT_EQ(result.id,
              (DeviceId{.manufacturer = 0, .product = 0, .firmware = "1.00", .device = 0x20}));
}

TEST(ControllerProbe, ControllerThatIsSilent_SaysSo) {
    const ProbeResult result = Probe(NodeWith([](auto& it) { it.answers = false; }));
    EXPECT_FALSE(result.id);
    EXPECT_EQ(result.trouble.code, "no_answer");
    EXPECT_EQ(result.trouble.text, "The simulated controller does not answer.");
}

TEST(ControllerProbe, ControllerThatIsNotPresent_SaysSo) {
    const ProbeResult result = Probe(NodeWith([](auto& it) { it.present = false; }));
    EXPECT_FALSE(result.id);
    EXPECT_EQ(result.trouble.code, "not_present");
    EXPECT_EQ(result.trouble.text, "The profile says that this controller is not present.");
}

TEST(ControllerProbe, BusyController_SaysSo) {
    const ProbeResult result = Probe(NodeWith([](auto& it) { it.busy = 1; }), kNode + 1);
    EXPECT_FALSE(result.id);
    EXPECT_EQ(
        result.trouble,
        (Trouble{.code = "busy",
                 .text = "The controller answered Get Device ID with completion code 0xff (the "
                         "controller is busy).",
                 .advice = "Wait a while, then try again."}));
}

TEST(ControllerProbe, AnyTrouble_WritesNoLogLine) {
    FakeDiagnostics::Reset();
    ControllerSettings controller;
    controller.device = "/nonexistent/ipmi0";
    EXPECT_EQ(ProbeController(controller, 0, kProbeLimit).trouble.text,
              "The device /nonexistent/ipmi0 cannot be opened: No such file or directory.");
    EXPECT_THAT(FakeDiagnostics::Lines(), IsEmpty());
}

TEST(NodesToProbe, ControllersOfTheSettings_HaveNumberWayAndLimit) {
    Settings settings;
    settings.timeLimit.value = 7;
    auto& controllers = settings.controllers.value.emplace(2);
    controllers[0].device = "/dev/ipmi3";
    controllers[1].transport = TransportKind::Lan;
    controllers[1].host = "192.0.2.1";

    const std::vector<ProbedNode> nodes = NodesToProbe(settings);

    ASSERT_EQ(nodes.size(), 2U);
    EXPECT_EQ(nodes[0].way, "inband /dev/ipmi3");
    EXPECT_EQ(nodes[1].number, 1);
    EXPECT_EQ(nodes[1].way, "lan 192.0.2.1:623");
    EXPECT_EQ(nodes[1].controller.host, "192.0.2.1");
    EXPECT_EQ(nodes[1].limit, std::chrono::seconds(7));
}

TEST(NodesToProbe, NoSettings_GiveTheDevices) {
    const TemporaryFolder folder;
    folder.Write("ipmi0", "");
    std::vector<std::string> ways;
    for (const ProbedNode& node : NodesToProbe(Settings(), folder.Path())) ways.push_back(node.way);
    EXPECT_THAT(ways, ElementsAre("inband " + folder.File("ipmi0")));
}

}  // namespace
}  // namespace platform
