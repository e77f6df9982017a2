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
                                "Check that the controller works and that its settings are "
                                "right.")));
}

TEST(ControllerChecks, NoControllerInTheSettings_IsBadAndNamesTheLine) {
    Settings settings;
    settings.controllers.value.emplace();
    settings.controllers.place = "f.toml:3";
    EXPECT_THAT(CheckControllers(settings),
                ElementsAre(Bad("devices", "The settings name no controller, says f.toml:3.",
                                "Name one there, or leave the controllers out for every IPMI "
                                "device.")));
}

TEST(ControllerChecks, NoDevice_IsBadWithEveryPathThatWasTried) {
    const TemporaryFolder folder;
    const std::string absent = ": No such file or directory";
    EXPECT_THAT(CheckControllers({}, folder.File("dev")),
                ElementsAre(Bad("devices",
                                "There is no IPMI device: " + folder.File("dev/ipmi0") + absent +
                                    "; " + folder.File("dev/ipmi/0") + absent + "; " +
                                    folder.File("dev/ipmidev/0") + absent + ".",
                                "Is the kernel module ipmi_devintf loaded?")));
}

TEST(ControllerChecks, DeviceThatIsMissing_IsBadTwice) {
    Settings settings;
    settings.controllers.value.emplace(1).front().device = "/absent/ipmi0";
    const Checks checks = CheckControllers(settings);
    ASSERT_EQ(checks.size(), 2u);
    EXPECT_EQ(checks[0],
              Bad("device /absent/ipmi0",
                  "The device /absent/ipmi0 cannot be read and written: No such file or directory.",
                  kLoadDriver));
    EXPECT_EQ(checks[1].grade, Grade::Fail);
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
