#include <fakes/FakeDiagnostics.h>
#include <gmock/gmock.h>
#include <platform/service_processor/ControllerNode.h>
#include <platform/service_processor/Nodes.h>

#include <limits>

#include "NodeWith.h"
#include "TemporaryFolder.h"

namespace platform {
namespace {

std::unique_ptr<ControllerNode> MakeNode(const Settings& settings, int node,
                                         const std::string& deviceFolder = kDeviceFolder) {
    return platform::MakeNode(FindNodes(std::make_shared<Settings>(settings), deviceFolder), node,
                              deviceFolder);
}

using testing::ElementsAre;
using testing::IsEmpty;

class NodeFactoryTest : public testing::Test {
protected:
    void SetUp() override { FakeDiagnostics::Reset(); }

    static Settings Simulated(const std::vector<SimulatedNode>& nodes) {
        Settings settings;
        auto& controllers = settings.controllers.value.emplace();
        for (const SimulatedNode& node : nodes) {
            ControllerSettings& controller = controllers.emplace_back();
            controller.transport = TransportKind::Simulated;
            controller.simulated = std::make_shared<SimulatedNode>(node);
        }
        return settings;
    }
};

TEST_F(NodeFactoryTest, NumberOfAController_GivesAnObjectThatKnowsTheirCount) {
    const Settings settings = Simulated({{}, {}});
    for (const int node : {0, 1}) {
        const auto object = MakeNode(settings, node);
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->GetNumberBMCNode(), 2);
    }
}

TEST_F(NodeFactoryTest, NumberOfNoController_GivesNull) {
    const Settings settings = Simulated({{}, {}});
    for (const int node :
         {2, 3, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_EQ(MakeNode(settings, node), nullptr) << node;
    }
}

TEST_F(NodeFactoryTest, NodeThatIsNotPresent_GivesNullButIsCounted) {
    const Settings settings = Simulated({{}, NodeWith([](auto& it) { it.present = false; }), {}});

    EXPECT_EQ(MakeNode(settings, 1), nullptr);
    EXPECT_EQ(MakeNode(settings, 0)->GetNumberBMCNode(), 3);
    EXPECT_NE(MakeNode(settings, 2), nullptr);
}

TEST_F(NodeFactoryTest, OxcOfTheSettings_IsTheAnswer) {
    Settings settings = Simulated({{}});
    EXPECT_FALSE(MakeNode(settings, 0)->IsOxcControllerMachine());
    settings.oxc.value = true;
    EXPECT_TRUE(MakeNode(settings, 0)->IsOxcControllerMachine());
}

TEST_F(NodeFactoryTest, OxcListOfTheSettings_IsComparedWithTheFirstController) {
    Settings settings = Simulated({{}, NodeWith([](auto& it) { it.answers = false; })});
    settings.oxc.value = std::vector<ControllerProduct>{{.manufacturer = 0, .product = 0}};
    EXPECT_TRUE(MakeNode(settings, 1)->IsOxcControllerMachine());
    settings.oxc.value = std::vector<ControllerProduct>{{.manufacturer = 1, .product = 0}};
    EXPECT_FALSE(MakeNode(settings, 1)->IsOxcControllerMachine());
}

TEST_F(NodeFactoryTest, ObjectThatIsNotAskedForTheFamily_AsksNobody) {
    Settings settings = Simulated({NodeWith([](auto& it) { it.answers = false; })});
    settings.oxc.value = std::vector<ControllerProduct>{{.manufacturer = 0, .product = 0}};
    MakeNode(settings, 0);
    EXPECT_THAT(FakeDiagnostics::Lines(), IsEmpty());
}

TEST_F(NodeFactoryTest, NoDeviceWithoutSettings_IsLoggedForNodeZero) {
    const TemporaryFolder folder;

    EXPECT_EQ(MakeNode(Settings(), 0, folder.Path()), nullptr);

    EXPECT_THAT(FakeDiagnostics::Lines(),
                ElementsAre(LogLine{NQUVZDX20::kLogError, "SP: " + NoDeviceText(folder.Path())}));
}

TEST_F(NodeFactoryTest, DeviceWithoutSettings_GivesAnInBandObject) {
    const TemporaryFolder folder;
    folder.Write("ipmi0", "");
    folder.Write("ipmi1", "");

    const auto object = MakeNode(Settings(), 1, folder.Path());

    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->GetNumberBMCNode(), 2);
    EXPECT_THAT(FakeDiagnostics::Lines(), IsEmpty());
}

TEST_F(NodeFactoryTest, NoControllersInTheSettings_IsNoTrouble) {
    EXPECT_EQ(MakeNode(Simulated({}), 0), nullptr);
    EXPECT_THAT(FakeDiagnostics::Lines(), IsEmpty());
}

TEST_F(NodeFactoryTest, Transport_IsThatOfTheSettings) {
    Settings settings = Simulated({NodeWith([](auto& it) { it.answers = false; }), {}, {}});
    settings.controllers.value->at(1) = {};
    settings.controllers.value->at(1).device = "/nonexistent/ipmi0";
    settings.controllers.value->at(2) = {};
    settings.controllers.value->at(2).transport = TransportKind::Lan;
    settings.controllers.value->at(2).host = "127.0.0.1";
    settings.controllers.value->at(2).passwordFile = "/nonexistent/password";

    for (const int node : {0, 1, 2}) {
        unsigned char buffer[256] = {0x01, 0x20, 0x3A, 0x00, 0x09};
        int length = 250;
        EXPECT_FALSE(MakeNode(settings, node)->sendIPMICommand(buffer, &length, 256, true));
    }

    EXPECT_THAT(FakeDiagnostics::Texts(NQUVZDX20::kLogError),
                ElementsAre(testing::StartsWith("SP: node 0 (simulated): "),
                            testing::StartsWith("SP: node 1 (inband /nonexistent/ipmi0): "),
                            testing::StartsWith("SP: node 2 (lan 127.0.0.1:623): ")));
}

TEST_F(NodeFactoryTest, ControllersOfADescription_StayWhereTheyAreWhenADeviceGoes) {
    FakeDiagnostics::Reset();
    const TemporaryFolder folder;
    for (const char* name : {"ipmi0", "ipmi1", "ipmi2"}) folder.Write(name, "");
    const NodeSet nodes = FindNodes(std::make_shared<Settings>(), folder.Path());
    std::filesystem::remove(folder.File("ipmi1"));

    const auto middle = platform::MakeNode(nodes, 1, folder.Path());
    EXPECT_EQ(middle->GetNumberBMCNode(), 3);
    unsigned char buffer[256] = {0x01, 0x20, 0x3A, 0x00, 0x09};
    int length = 250;
    EXPECT_FALSE(middle->sendIPMICommand(buffer, &length, 256, true));
    EXPECT_EQ(
        middle->LastExchange().trouble,
        (Trouble{"gone",
                 "The device " + folder.File("ipmi1") + " has gone: No such file or directory.",
                 "Is its kernel module (such as ipmi_si) loaded?"}));
}

TEST_F(NodeFactoryTest, Description_TellsAddressesPresenceAndSimulation) {
    const TemporaryFolder folder;
    folder.Write("ipmi0", "");
    const auto describe = [&](const Settings& settings) {
        return DescribeMachine(std::make_shared<const NodeSet>(
                                   FindNodes(std::make_shared<Settings>(settings), folder.Path())),
                               folder.Path());
    };
    const SPMachine real = describe(Settings());
    ASSERT_EQ(real.controllers.size(), 1u);
    EXPECT_EQ(real.controllers[0].address, "inband " + folder.File("ipmi0"));
    EXPECT_TRUE(real.controllers[0].present);
    EXPECT_FALSE(real.simulated);
    EXPECT_FALSE(real.trouble);

    const SPMachine simulated =
        describe(Simulated({NodeWith([](auto& it) { it.present = false; })}));
    EXPECT_EQ(simulated.controllers[0].address, "simulated");
    EXPECT_FALSE(simulated.controllers[0].present);
    EXPECT_TRUE(simulated.simulated);
}

TEST_F(NodeFactoryTest, MachineWithoutControllers_IsToldByItsReason) {
    const TemporaryFolder folder;
    const auto codeOf = [&](const Settings& settings) {
        return DescribeMachine(std::make_shared<const NodeSet>(
                                   FindNodes(std::make_shared<Settings>(settings), folder.Path())),
                               folder.Path())
            .trouble->code;
    };
    EXPECT_EQ(codeOf(Settings()), "no_device");
    EXPECT_EQ(codeOf(Simulated({})), "no_controller");
    Settings broken;
    broken.controllers.value.emplace();
    broken.problem = "a key is wrong.";
    EXPECT_EQ(codeOf(broken), "settings");
}

}  // namespace
}  // namespace platform
