#include <gtest/gtest.h>
#include <platform/service_processor/LanTimeouts.h>

namespace platform {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

// The end of FreeIPMI's wait for a silent controller: it waits one retransmission time twice, then
// two of them twice, then three, and looks after each wait whether the session time is over.
milliseconds EndOfWait(const LanTimeouts& timeouts) {
    unsigned int passed = 0;
    for (unsigned int wait = 0; passed <= timeouts.session; ++wait) {
        passed += (wait / 2 + 1) * timeouts.retransmission;
    }
    return milliseconds(passed);
}

TEST(LanSilence, LimitOfTheSettings_IsKeptWithinWhatTheTotalAllows) {
    EXPECT_EQ(LanSilence(seconds(0)), seconds(1));
    EXPECT_EQ(LanSilence(seconds(1)), seconds(1));
    EXPECT_EQ(LanSilence(seconds(4)), seconds(4));
    EXPECT_EQ(LanSilence(seconds(60)), seconds(7));
}

TEST(TimeoutsFor, AnySilence_EndsTheWaitExactlyThenAfterThreePackets) {
    for (const milliseconds silence : {seconds(1), seconds(4), seconds(7)}) {
        const LanTimeouts timeouts = TimeoutsFor(silence);
        EXPECT_EQ(EndOfWait(timeouts), silence);
        EXPECT_LT(timeouts.retransmission, timeouts.session);
    }
}

}  // namespace
}  // namespace platform
