#include <cli/report/BusMap.h>
#include <gmock/gmock.h>

#include "Results.h"

namespace cli {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string MapOf(const std::vector<ControllerResult>& controllers, std::size_t width = 80) {
    return BusMapText(controllers, {.hasColour = false, .width = width});
}

std::vector<std::optional<BusState>> GoodBusses(std::size_t count) {
    return std::vector(count, std::optional(kGood));
}

TEST(BusMap, EachController_HasARowAndEachBusACell) {
    EXPECT_EQ(MapOf({Examined(0, {kGood, kGood, kGood}), Examined(1, {kGood, kFailed, kGood})}),
              "  bus      0  1  2\n"
              "  node 0   .  .  .\n"
              "  node 1   .  X  .\n"
              "\n"
              "  .  good     X  failed\n");
}

TEST(BusMap, Legend_ShowsOnlyTheMarksThatOccur) {
    EXPECT_THAT(MapOf({Examined(0, {kGood})}), HasSubstr("\n\n  .  good\n"));
    EXPECT_THAT(MapOf({Examined(0, {kFailed})}), HasSubstr("\n\n  X  failed\n"));
    EXPECT_THAT(MapOf({Examined(0, {kUnjudged})}), HasSubstr("\n\n  ?  not judged\n"));
    EXPECT_EQ(MapOf({Silent(0)}), "  node 0  not examined: no answer\n");
}

TEST(BusMap, NumberWithoutABus_IsADashThatTheLegendExplains) {
    EXPECT_EQ(MapOf({Examined(0, {kGood}), Examined(1, {kGood, std::nullopt, kFailed})}),
              "  bus      0  1  2\n"
              "  node 0   .\n"
              "  node 1   .  -  X\n"
              "\n"
              "  .  good     X  failed     -  no such bus\n");
}

TEST(BusMap, BusThatWasNotJudged_IsAQuestionMark) {
    EXPECT_THAT(MapOf({Examined(0, {kGood, kUnjudged})}),
                HasSubstr("  node 0   .  ?\n\n  .  good     ?  not judged\n"));
}

TEST(BusMap, MoreThanSixteenBusses_ContinueInAnotherBlock) {
    EXPECT_THAT(MapOf({Examined(0, GoodBusses(18)), Examined(1, {kGood})}),
                HasSubstr("\n\n  bus     16 17\n  node 0   .  .\n\n"));
}

TEST(BusMap, ThreeDigitNumbers_HaveRoom) {
    EXPECT_THAT(MapOf({Examined(0, GoodBusses(101))}),
                HasSubstr("\n  bus      96  97  98  99 100\n"));
}

TEST(BusMap, NarrowTerminal_HasEightBussesInALine) {
    const std::string map =
        MapOf({Examined(0, GoodBusses(16)), Examined(1, {kFailed, kUnjudged})}, 40);
    EXPECT_THAT(map, HasSubstr("  bus      0  1  2  3  4  5  6  7\n"
                               "  node 0   .  .  .  .  .  .  .  .\n"
                               "  node 1   X  ?\n"
                               "\n"
                               "  bus      8  9 10 11 12 13 14 15\n"
                               "  node 0   .  .  .  .  .  .  .  .\n"));
    EXPECT_THAT(map, HasSubstr("\n  .  good     X  failed\n  ?  not judged\n"));
}

TEST(BusMap, NoLine_IsWiderThanTheTerminal) {
    const std::vector<ControllerResult> controllers = {
        Examined(0, GoodBusses(101)),
        Examined(1, {kGood, std::nullopt, kFailed, kUnjudged}),
        Silent(2),
        Refusing(3),
        Short(4),
        NotAsked(5)};
    for (const std::size_t width : {40, 50, 57, 60, 80, 100}) {
        std::istringstream lines(MapOf(controllers, width));
        for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), width) << line;
    }
}

TEST(BusMap, ControllersThatWereNotExamined_TellWhy) {
    EXPECT_EQ(MapOf({Silent(0), Short(1), Refusing(2), NotAsked(3), Examined(4, {})}),
              "  node 0  not examined: no answer\n"
              "  node 1  not examined: answer too short\n"
              "  node 2  not examined: refused (0xc1)\n"
              "  node 3  not asked\n"
              "  node 4  no bus reported\n");
}

TEST(BusMap, OnAColourTerminal_FailedBussesAreRed) {
    const Terminal colour{.hasColour = true, .width = 80};
    EXPECT_THAT(BusMapText({Examined(0, {kGood, kFailed})}, colour),
                HasSubstr("  node 0   .  \033[1;31mX\033[0m\n"));
}

TEST(BusMap, ElsewhereThanOnATerminal_HasNoColour) {
    EXPECT_THAT(MapOf({Examined(0, {kFailed, kUnjudged}), Silent(1)}), Not(HasSubstr("\033")));
}

}  // namespace
}  // namespace cli
