#include <cli/doctor/ControllerChecks.h>

#include "CheckMatchers.h"
#include "TemporaryFolder.h"

namespace cli {
namespace {

using platform::Settings;
using testing::ElementsAre;

Settings With(const platform::SimulatedNode& node) {
    Settings settings;
    auto& controller = settings.controllers.value.emplace(1).front();
    controller.transport = platform::TransportKind::Simulated;
    controller.simulated = std::make_shared<platform::SimulatedNode>(node);
    return settings;
}

constexpr const char* kLoadDriver =
    "Load the kernel's IPMI driver with: modprobe -a ipmi_si ipmi_devintf";

TEST(ControllerChecks, SimulatedControllerThatAnswers_IsGood) {
    EXPECT_THAT(CheckControllers(With({})),
                ElementsAre(Good("controller 0",
                                 "Controller 0, simulated, answers: manufacturer 0, product 0, "
                                 "firmware 1.00.")));
}

TEST(ControllerChecks, SimulatedControllerThatIsSilent_IsBad) {
    platform::SimulatedNode node;
    node.answers = false;
    EXPECT_THAT(CheckControllers(With(node)),
                ElementsAre(Bad("controller 0",
                                "Controller 0, simulated, is not reached: The simulated controller "
                                "does not answer.",
                                "Change its profile if it is to answer.")));
}

TEST(ControllerChecks, NoControllerInTheSettings_IsBadAndNamesTheLine) {
    Settings settings;
    settings.controllers.value.emplace();
    settings.controllers.place = "f.toml:3";
    EXPECT_THAT(CheckControllers(settings),
                ElementsAre(Bad("devices", "The settings list no controller (f.toml:3).",
                                "Add a [[controller]], or remove the key to use this machine's "
                                "IPMI devices.")));
}

TEST(ControllerChecks, NoControllerInTheProfile_IsBadAndNamesTheProfile) {
    Settings settings;
    settings.controllers = {.value = std::vector<platform::ControllerSettings>{},
                            .origin = platform::Origin::Profile,
                            .place = "p.toml"};
    EXPECT_THAT(CheckControllers(settings),
                ElementsAre(Bad("devices", "The profile p.toml lists no controller.",
                                "Add a [[node]], or run the test without a profile to use this "
                                "machine's IPMI devices.")));
}

TEST(ControllerChecks, BusyController_HasAnswered) {
    platform::SimulatedNode node;
    node.busy = 1;
    EXPECT_THAT(CheckControllers(With(node)),
                ElementsAre(Bad("controller 0",
                                "Controller 0, simulated, answers, but does not identify itself: "
                                "The controller answered Get Device ID with completion code 0xff "
                                "(the controller is busy).",
                                "Wait a while, then try again.")));
}

TEST(ControllerChecks, NoDevice_IsBadWithEveryPathThatWasTried) {
    const TemporaryFolder folder;
    const std::string absent = ": No such file or directory";
    EXPECT_THAT(CheckControllers({}, folder.File("dev")),
                ElementsAre(Bad("devices",
                                "There is no IPMI device: " + folder.File("dev/ipmi0") + absent +
                                    "; " + folder.File("dev/ipmi/0") + absent + "; " +
                                    folder.File("dev/ipmidev/0") + absent + ".",
                                "Load the kernel's IPMI driver (modprobe -a ipmi_si ipmi_devintf), "
                                "or list the controllers in the settings file, then run the test "
                                "again.")));
}

Settings WithDevice(const std::string& device) {
    Settings settings;
    settings.controllers.value.emplace(1).front().device = device;
    return settings;
}

TEST(ControllerChecks, DeviceThatIsMissing_HasItsReasonOnce) {
    const TemporaryFolder noDevices;
    EXPECT_THAT(
        CheckControllers(WithDevice("/absent/ipmi0"), noDevices.Path()),
        ElementsAre(
            Bad("device /absent/ipmi0",
                "The device /absent/ipmi0 cannot be read and written: No such file or directory.",
                kLoadDriver),
            Bad("controller 0", "Controller 0, inband /absent/ipmi0, was not asked.",
                "Fix what the check \"device /absent/ipmi0\" tells first.")));
}

TEST(ControllerChecks, DeviceThatIsMissingBesideOthers_IsWrongInTheSettings) {
    const TemporaryFolder devices;
    devices.Write("ipmi0", "");
    devices.Write("ipmi2", "");
    const Checks checks = CheckControllers(WithDevice(devices.File("ipmi1")), devices.Path());
    EXPECT_EQ(checks.at(0).advice, "Correct the key device; this machine has " +
                                       devices.File("ipmi0") + " and " + devices.File("ipmi2") +
                                       ".");
}

TEST(ControllerChecks, FileInThePlaceOfADevice_MayBeReadButDoesNotAnswer) {
    const TemporaryFolder folder;
    const std::string device = folder.Write("ipmi0", "");
    const Checks checks = CheckControllers({}, folder.File(""));
    ASSERT_EQ(checks.size(), 2u);
    EXPECT_EQ(checks[0].grade, Grade::Ok);
    EXPECT_THAT(checks[0].text, testing::EndsWith("ipmi0 may be read and written."));
    EXPECT_EQ(checks[1].grade, Grade::Fail);
}

}  // namespace
}  // namespace cli
