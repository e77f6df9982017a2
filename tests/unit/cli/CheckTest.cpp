#include <cli/doctor/Check.h>

#include "CheckMatchers.h"

namespace cli {
namespace {

TEST(Check, OfSeveralSentences_HasAllButTheFirstAsAdvice) {
    EXPECT_EQ(BadFrom("x", "The file a.b is gone. Bring it back. Soon.", "unused"),
              Bad("x", "The file a.b is gone.", "Bring it back. Soon."));
}

TEST(Check, OfOneSentence_GetsTheAdvice) {
    EXPECT_EQ(BadFrom("x", "The address 192.0.2.1 is silent.", "Ask again."),
              Bad("x", "The address 192.0.2.1 is silent.", "Ask again."));
    EXPECT_EQ(BadFrom("x", "", "Ask again."), Bad("x", "", "Ask again."));
}

TEST(Check, FullStopBeforeASmallLetter_EndsNoSentence) {
    EXPECT_EQ(BadFrom("x", "Cipher suite 3 e. g. works.", "Ask again."),
              Bad("x", "Cipher suite 3 e. g. works.", "Ask again."));
}

TEST(Check, TextOfSeveralLines_IsOneLine) {
    EXPECT_EQ(Good("x", "a\nb").text, "a b");
    EXPECT_EQ(Bad("x", "a\r\nb", "c\nd"), Bad("x", "a  b", "c d"));
}

TEST(Check, WorstOfSeveral_Counts) {
    const Check good = Good("a", "It works.");
    const Check warning = Warning("b", "It may work.", "Look.");
    const Check bad = Bad("c", "It fails.", "Fix it.");
    EXPECT_EQ(WorstOf({}), Grade::Ok);
    EXPECT_EQ(WorstOf({good, good}), Grade::Ok);
    EXPECT_EQ(WorstOf({warning, good}), Grade::Warn);
    EXPECT_EQ(WorstOf({warning, bad, good}), Grade::Fail);
}

}  // namespace
}  // namespace cli
