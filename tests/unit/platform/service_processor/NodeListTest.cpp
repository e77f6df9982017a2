#include <gmock/gmock.h>
#include <platform/service_processor/Nodes.h>

#include "TemporaryFolder.h"

namespace platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> DevicesIn(const TemporaryFolder& folder) {
    std::vector<std::string> devices;
    for (const ControllerSettings& node : NodeList(Settings(), folder.Path())) {
        EXPECT_EQ(node.transport, TransportKind::InBand);
        devices.push_back(node.device);
    }
    return devices;
}

TEST(NodeList, DevicesWithoutSettings_AreNodesInNumericOrder) {
    const TemporaryFolder folder;
    for (const char* name : {"ipmi10", "ipmi2", "ipmi0"}) folder.Write(name, "");

    EXPECT_THAT(DevicesIn(folder),
                ElementsAre(folder.File("ipmi0"), folder.File("ipmi2"), folder.File("ipmi10")));
}

TEST(NodeList, DevicesInFoldersOfTheirOwn_AreFound) {
    const TemporaryFolder folder;
    folder.Write("ipmi/1", "");
    folder.Write("ipmidev/0", "");

    EXPECT_THAT(DevicesIn(folder), ElementsAre(folder.File("ipmidev/0"), folder.File("ipmi/1")));
}

TEST(NodeList, DeviceOfOneNumberInSeveralPlaces_IsOneNode) {
    const TemporaryFolder folder;
    folder.Write("ipmi0", "");
    folder.Write("ipmidev/0", "");

    EXPECT_THAT(DevicesIn(folder), ElementsAre(folder.File("ipmi0")));
}

TEST(NodeList, OtherNames_AreNoNodes) {
    const TemporaryFolder folder;
    for (const char* name : {"ipmi", "ipmix", "ipmi1x", "ipmi-1", "ipmi99999999999", "xipmi0", "0"})
        folder.Write(name, "");
    folder.Write("ipmidev/ipmi0", "");

    EXPECT_THAT(DevicesIn(folder), IsEmpty());
}

TEST(NodeList, FolderThatIsMissing_HasNoNodes) {
    const TemporaryFolder folder;
    EXPECT_THAT(NodeList(Settings(), folder.File("missing")), IsEmpty());
}

TEST(NodeList, ControllersOfTheSettings_AreTheNodesAndDevicesAreNot) {
    const TemporaryFolder folder;
    folder.Write("ipmi0", "");
    Settings settings;
    settings.controllers.value.emplace(2);
    settings.controllers.value->at(1).host = "192.0.2.1";

    const auto nodes = NodeList(settings, folder.Path());

    ASSERT_EQ(nodes.size(), 2U);
    EXPECT_EQ(nodes[1].host, "192.0.2.1");
}

TEST(NodeList, DevicesAndNetworkInTheSettings_KeepTheirOrder) {
    Settings settings;
    auto& controllers = settings.controllers.value.emplace(3);
    controllers[0].transport = TransportKind::Lan;
    controllers[0].host = "192.0.2.1";
    controllers[1].device = "/dev/ipmi1";
    controllers[2].transport = TransportKind::Lan;
    controllers[2].host = "192.0.2.2";

    const auto nodes = NodeList(settings);

    ASSERT_EQ(nodes.size(), 3U);
    EXPECT_EQ(nodes[0].host, "192.0.2.1");
    EXPECT_EQ(nodes[1].device, "/dev/ipmi1");
    EXPECT_EQ(nodes[2].host, "192.0.2.2");
}

TEST(TimeLimit, LimitOfTheController_GoesBeforeThatOfAll) {
    Settings settings;
    settings.timeLimit.value = 7;
    ControllerSettings controller;
    EXPECT_EQ(TimeLimit(settings, controller), std::chrono::seconds(7));
    controller.timeLimit = 2;
    EXPECT_EQ(TimeLimit(settings, controller), std::chrono::seconds(2));
}

TEST(NodeList, NoControllersInTheSettings_AreNoNodes) {
    const TemporaryFolder folder;
    folder.Write("ipmi0", "");
    Settings settings;
    settings.controllers.value.emplace();

    EXPECT_THAT(NodeList(settings, folder.Path()), IsEmpty());
}

TEST(NoDeviceText, NoDevice_NamesEachPathAndItsReason) {
    const TemporaryFolder folder;
    folder.Write("ipmi", "no folder");

    EXPECT_EQ(NoDeviceText(folder.Path()),
              "There is no IPMI device: " + folder.File("ipmi0") + ": No such file or directory; " +
                  folder.File("ipmi/0") + ": Not a directory; " + folder.File("ipmidev/0") +
                  ": No such file or directory. Is the kernel module ipmi_devintf loaded?");
}

}  // namespace
}  // namespace platform
