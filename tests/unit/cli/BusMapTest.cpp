#include <cli/report/BusMap.h>
#include <gmock/gmock.h>

namespace cli {
namespace {

using Outcome = ControllerStatus::Outcome;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kLegend = "\n  .  good     X  failed\n";

ControllerStatus Examined(std::vector<Bus> busses) {
    return {.outcome = Outcome::Examined, .busses = std::move(busses)};
}

TEST(BusMap, EachController_HasARowAndEachBusACell) {
    const Terminal plain;
    EXPECT_EQ(BusMapText({Examined({Bus::Good, Bus::Good, Bus::Good}),
                          Examined({Bus::Good, Bus::Failed, Bus::Good})},
                         plain),
              std::string("  bus      0  1  2\n"
                          "  node 0   .  .  .\n"
                          "  node 1   .  X  .\n") +
                  kLegend);
}

TEST(BusMap, NumberWithoutABus_IsADashThatTheLegendExplains) {
    const Terminal plain;
    EXPECT_EQ(
        BusMapText({Examined({Bus::Good}), Examined({Bus::Good, Bus::None, Bus::Failed})}, plain),
        "  bus      0  1  2\n"
        "  node 0   .\n"
        "  node 1   .  -  X\n"
        "\n  .  good     X  failed     -  no such bus\n");
}

TEST(BusMap, MoreThanSixteenBusses_ContinueInAnotherBlock) {
    const Terminal plain;
    const std::string map =
        BusMapText({Examined(std::vector<Bus>(18, Bus::Good)), Examined({Bus::Good})}, plain);
    EXPECT_THAT(map, HasSubstr("\n\n  bus     16 17\n  node 0   .  .\n\n"));
}

TEST(BusMap, ControllersThatWereNotJudged_TellWhy) {
    const Terminal plain;
    EXPECT_EQ(BusMapText({{.outcome = Outcome::NotDelivered},
                          {.outcome = Outcome::BadLength, .length = 1},
                          {.outcome = Outcome::Refused, .completionCode = 0xC1},
                          {.outcome = Outcome::NotAsked},
                          Examined({})},
                         plain),
              std::string("  node 0  not reached: its busses were not examined\n"
                          "  node 1  answer too short (length 1): its busses were not examined\n"
                          "  node 2  refused (completion code 0xc1): its busses were not examined\n"
                          "  node 3  not asked\n"
                          "  node 4  no bus reported\n") +
                  kLegend);
}

TEST(BusMap, ByteWithoutBusses_IsExplained) {
    const Terminal plain;
    ControllerStatus controller = Examined({Bus::Good});
    controller.hasBytesWithoutBusses = true;
    EXPECT_THAT(BusMapText({controller}, plain),
                HasSubstr("\n  The second status byte of node 0 stands for no bus and was not "
                          "examined.\n"));
}

TEST(BusMap, OnAColourTerminal_FailedBussesAreRed) {
    const Terminal colour{.hasColour = true, .width = 80};
    const std::string map = BusMapText({Examined({Bus::Good, Bus::Failed})}, colour);
    EXPECT_THAT(map, HasSubstr("  node 0   .  \033[1;31mX\033[0m\n"));
}

TEST(BusMap, ElsewhereThanOnATerminal_HasNoColour) {
    const Terminal plain;
    EXPECT_THAT(BusMapText({Examined({Bus::Failed})}, plain), Not(HasSubstr("\033")));
}

}  // namespace
}  // namespace cli
