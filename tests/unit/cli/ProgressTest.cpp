#include <cli/run/Progress.h>
#include <gmock/gmock.h>

#include <future>
#include <sstream>
#include <utility>

namespace cli {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

const ProgressState::Time kBegin{seconds(1000)};

ProgressState Asking() {
    return {.begin = kBegin, .node = 1, .count = 3, .address = "lan h:623", .pauseEnd = {}};
}

TEST(ProgressText, BeforeTheFirstController_LooksForThem) {
    const ProgressState state{.begin = kBegin, .address = {}, .pauseEnd = {}};
    EXPECT_EQ(ProgressText(state, kBegin), "Looking for controllers (0 s)");
}

TEST(ProgressText, Controller_IsNamedWithPlaceAndAddress) {
    EXPECT_EQ(ProgressText(Asking(), kBegin + milliseconds(4999)),
              "Asking controller 2 of 3, lan h:623 (4 s)");
}

TEST(ProgressText, Pause_CountsDown) {
    ProgressState state = Asking();
    state.pauseEnd = kBegin + seconds(7);
    EXPECT_EQ(ProgressText(state, kBegin + seconds(2)),
              "Busy: asking controller 2 of 3, lan h:623, again in 5 s (2 s)");
    EXPECT_EQ(ProgressText(state, kBegin + milliseconds(6500)),
              "Busy: asking controller 2 of 3, lan h:623, again in 1 s (6 s)");
    EXPECT_EQ(ProgressText(state, kBegin + seconds(7)),
              "Asking controller 2 of 3, lan h:623 (7 s)");
}

TEST(Progress, LineOfAController_IsDrawnAndErased) {
    std::ostringstream out;
    {
        Progress progress(out, 80);
        progress.OnController(0, 2, "inband /dev/ipmi0");
        progress.OnController(1, 2, "lan h");
    }
    // Blanks cover what the second line leaves of the first one, and in the end all of it.
    EXPECT_THAT(out.str(),
                MatchesRegex("\r.*Asking controller 1 of 2, inband /dev/ipmi0 \\([0-9]+ s\\)\r"
                             ".*Asking controller 2 of 2, lan h \\([0-9]+ s\\) +\r +\r"));
    EXPECT_THAT(out.str(), Not(HasSubstr("\n")));
    EXPECT_THAT(out.str(), Not(HasSubstr("\033")));
}

TEST(Progress, Pause_IsDrawn) {
    std::ostringstream out;
    {
        Progress progress(out, 80);
        progress.OnController(0, 1, "simulated");
        progress.OnBusyPause(0, seconds(500));
    }
    EXPECT_THAT(out.str(), HasSubstr("Busy: asking controller 1 of 1, simulated, again in 500 s"));
}

TEST(Progress, LongLine_IsCutBeforeTheLastColumn) {
    std::ostringstream out;
    {
        Progress progress(out, 20);
        progress.OnController(0, 1, "simulated");
    }
    EXPECT_THAT(out.str(), HasSubstr("\rAsking controller 1\r"));
}

TEST(Progress, AddressOfAController_IsMadePrintable) {
    std::ostringstream out;
    {
        Progress progress(out, 80);
        progress.OnController(0, 1, "lan \033[2J");
    }
    EXPECT_THAT(out.str(), HasSubstr("lan \\x1b[2J"));
}

// Tells when something was drawn.
class WatchedBuffer : public std::stringbuf {
public:
    std::promise<void> drawn;

protected:
    int sync() override {
        if (!std::exchange(isDrawn, true)) drawn.set_value();
        return std::stringbuf::sync();
    }

private:
    bool isDrawn = false;
};

TEST(Progress, Line_IsDrawnWithoutBeingTold) {
    WatchedBuffer buffer;
    std::ostream out(&buffer);
    {
        const Progress progress(out, 80);
        buffer.drawn.get_future().wait();
    }
    EXPECT_THAT(buffer.str(), HasSubstr("\rLooking for controllers ("));
}

}  // namespace
}  // namespace cli
