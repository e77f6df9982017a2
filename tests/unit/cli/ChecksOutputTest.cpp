#include <cli/doctor/ChecksOutput.h>
#include <gtest/gtest.h>

namespace cli {
namespace {

const Checks kChecks = {Good("one", "It works."), Warning("two", "It may work.", "Look at it."),
                        Bad("three", "It fails.", "Fix it.")};

TEST(ChecksText, EveryCheck_HasItsGrade) {
    EXPECT_EQ(ChecksText(kChecks, {}),
              "OK    one: It works.\n"
              "WARN  two: It may work. Look at it.\n"
              "FAIL  three: It fails. Fix it.\n");
    EXPECT_EQ(ChecksText({}, {}), "");
}

TEST(ChecksText, ChecksThatFailForOneCause_ShareAParagraph) {
    const Check first = Bad("one", "It fails.", "Fix it.");
    const Check again = Bad("three", "It fails.", "Fix it.");
    const Check other = Bad("four", "It fails.", "Fix something else.");
    EXPECT_EQ(ChecksText({first, Good("two", "It works."), again, other}, {}),
              "FAIL  one, three: It fails. Fix it.\n"
              "OK    two: It works.\n"
              "FAIL  four: It fails. Fix something else.\n");
    EXPECT_EQ(ChecksJson({first, again})["checks"].size(), 2u);
}

TEST(ChecksText, LongLines_AreIndented) {
    EXPECT_EQ(ChecksText({Bad("three", "It fails.", "Fix it.")}, {.width = 24}),
              "FAIL  three: It fails.\n"
              "      Fix it.\n");
}

TEST(ChecksText, Grades_AreColoured) {
    EXPECT_EQ(ChecksText(kChecks, {.hasColour = true}),
              "\033[1;32mOK\033[0m    one: It works.\n"
              "\033[1;33mWARN\033[0m  two: It may work. Look at it.\n"
              "\033[1;31mFAIL\033[0m  three: It fails. Fix it.\n");
}

TEST(ChecksText, ControlCharacters_AreEscaped) {
    EXPECT_EQ(ChecksText({Bad("\x1b[2J", "\x9b", "\x07")}, {}), "FAIL  \\x1b[2J: \\x9b \\x07\n");
}

TEST(ChecksJson, Verdict_IsTheWorst) {
    EXPECT_EQ(ChecksJson({})["verdict"], "ok");
    EXPECT_EQ(ChecksJson({kChecks[0], kChecks[1]})["verdict"], "warning");
    EXPECT_EQ(ChecksJson(kChecks)["verdict"], "failed");
}

TEST(ChecksJson, EveryCheck_IsAnObject) {
    const Json json = ChecksJson({kChecks[1], kChecks[2]});
    EXPECT_EQ(json["format_version"], 1);
    EXPECT_EQ(json["checks"].dump(),
              R"([{"check":"two","status":"WARN","text":"It may work.","advice":"Look at it."},)"
              R"({"check":"three","status":"FAIL","text":"It fails.","advice":"Fix it."}])");
}

}  // namespace
}  // namespace cli
