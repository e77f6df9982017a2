#include <fakes/FakeDiagnostics.h>
#include <gmock/gmock.h>
#include <platform/service_processor/OxcMachine.h>

#include "NodeWith.h"

namespace platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::chrono::milliseconds kProductLimit{1000};

// The simulated controller names itself manufacturer 0, product 0.
const std::vector<ControllerProduct> kListWithIt = {{.manufacturer = 1, .product = 2}, {}};
const std::vector<ControllerProduct> kListWithoutIt = {{.manufacturer = 0, .product = 2},
                                                       {.manufacturer = 1, .product = 0}};

ControllerSettings Simulated(const SimulatedNode& node) {
    ControllerSettings controller;
    controller.transport = TransportKind::Simulated;
    controller.simulated = std::make_shared<SimulatedNode>(node);
    return controller;
}

bool IsOxc(const OxcFamily& family, const ControllerSettings& first,
           std::chrono::milliseconds limit) {
    return AskOxcFamily(family, first, limit).isOxc;
}

std::string FamilyTroubleOf(const ControllerSettings& first) {
    const OxcAnswer answer = AskOxcFamily(kListWithIt, first, kProductLimit);
    EXPECT_FALSE(answer.isOxc);
    return answer.trouble ? answer.trouble->code : "";
}

// Each test runs in its own process, so that nobody is known at its beginning.
class OxcMachine : public testing::Test {
protected:
    void SetUp() override { FakeDiagnostics::Reset(); }
};

TEST_F(OxcMachine, List_ComparesManufacturerAndProduct) {
    const std::vector<ControllerProduct> list = {{.manufacturer = 20301, .product = 12}};
    EXPECT_TRUE(IsInOxcList(list, {.manufacturer = 20301, .product = 12, .firmware = "1.00"}));
    EXPECT_FALSE(IsInOxcList(list, {.manufacturer = 20301, .product = 13}));
    EXPECT_FALSE(IsInOxcList(list, {.manufacturer = 20302, .product = 12}));
    EXPECT_FALSE(IsInOxcList({}, {.manufacturer = 20301, .product = 12}));
}

TEST_F(OxcMachine, YesAndNo_AskNobody) {
    const ControllerSettings silent = Simulated(NodeWith([](auto& it) { it.answers = false; }));
    EXPECT_TRUE(IsOxc(true, silent, kProductLimit));
    EXPECT_FALSE(IsOxc(false, silent, kProductLimit));
    EXPECT_THAT(FakeDiagnostics::Lines(), IsEmpty());
}

TEST_F(OxcMachine, ListWithTheFirstController_IsYes) {
    EXPECT_TRUE(IsOxc(kListWithIt, Simulated({}), kProductLimit));
}

TEST_F(OxcMachine, ListWithoutTheFirstController_IsNo) {
    EXPECT_FALSE(IsOxc(kListWithoutIt, Simulated({}), kProductLimit));
}

TEST_F(OxcMachine, ControllerThatHasAnswered_IsNotAskedAgain) {
    IsOxc(kListWithIt, Simulated({}), kProductLimit);
    FakeDiagnostics::Reset();
    EXPECT_TRUE(IsOxc(kListWithIt, Simulated({}), kProductLimit));
    EXPECT_THAT(FakeDiagnostics::Lines(), IsEmpty());
}

TEST_F(OxcMachine, ControllerThatIsNotPresent_IsNo) {
    EXPECT_FALSE(IsOxc(kListWithIt, Simulated(NodeWith([](auto& it) { it.present = false; })),
                       kProductLimit));
}

TEST_F(OxcMachine, SilentController_IsNoAndLogged) {
    ControllerSettings controller;
    controller.device = "/nonexistent/ipmi0";
    EXPECT_FALSE(IsOxc(kListWithIt, controller, kProductLimit));
    EXPECT_THAT(FakeDiagnostics::Texts(NQUVZDX20::kLogError),
                ElementsAre(testing::StartsWith(
                    "SP: node 0 (inband /nonexistent/ipmi0): network function 0x06, command 0x01: "
                    "The device /nonexistent/ipmi0 cannot be opened: No such file or directory.")));
}

TEST_F(OxcMachine, FamilyThatCannotBeFoundOut_IsTold) {
    EXPECT_EQ(FamilyTroubleOf(Simulated(NodeWith([](auto& it) { it.answers = false; }))),
              "no_answer");
    EXPECT_EQ(FamilyTroubleOf(Simulated(NodeWith([](auto& it) { it.busy = 1000; }))), "busy");
    EXPECT_EQ(FamilyTroubleOf(Simulated(NodeWith([](auto& it) { it.present = false; }))),
              "not_present");
}

TEST_F(OxcMachine, FamilyThatIsKnown_HasNoTrouble) {
    EXPECT_FALSE(AskOxcFamily(true, Simulated({}), kProductLimit).trouble);
    EXPECT_FALSE(AskOxcFamily(kListWithoutIt, Simulated({}), kProductLimit).trouble);
}

}  // namespace
}  // namespace platform
