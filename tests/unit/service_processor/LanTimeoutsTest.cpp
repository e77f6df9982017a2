#include <gtest/gtest.h>
#include <platform/service_processor/LanTimeouts.h>

#include <vector>

namespace platform {
namespace {

using std::chrono::milliseconds;

// When FreeIPMI sends a packet of an exchange with a silent controller; the last time is the end.
std::vector<milliseconds> PacketTimes(const LanTimeouts& timeouts) {
    std::vector<milliseconds> times = {milliseconds(0)};
    while (times.back().count() <= timeouts.session) {
        const unsigned int wait = static_cast<unsigned int>(times.size() - 1) / 2 + 1;
        times.push_back(times.back() + milliseconds(wait * timeouts.retransmission));
    }
    return times;
}

std::vector<milliseconds> Times(std::initializer_list<int> times) {
    return {times.begin(), times.end()};
}

TEST(LanTimeouts, FourPackets_AreCloseTogetherFirst) {
    EXPECT_EQ(PacketTimes(TimeoutsFor(milliseconds(1200), Packets::Four)),
              Times({0, 200, 400, 800, 1200}));
}

TEST(LanTimeouts, TwoPackets_HaveTheSameWait) {
    EXPECT_EQ(PacketTimes(TimeoutsFor(milliseconds(1200), Packets::Two)), Times({0, 600, 1200}));
}

// The look is behind the session time because the controller's last packet came before the wait
// began.
TEST(LanTimeouts, OnePacket_HasAllOfTheSilence) {
    const LanTimeouts timeouts = TimeoutsFor(milliseconds(1200), Packets::One);
    EXPECT_EQ(timeouts.retransmission, 1200U);
    EXPECT_LT(milliseconds(timeouts.session), milliseconds(1200) + kBeforeOnePacket);
}

TEST(LanTimeouts, AnySilence_IsWhatFreeIpmiAccepts) {
    for (const int silence : {-5, 0, 1, 2, 3, 7, 13, 1000, 10000}) {
        for (const auto packets : {Packets::Four, Packets::Two, Packets::One}) {
            const LanTimeouts timeouts = TimeoutsFor(milliseconds(silence), packets);
            EXPECT_GT(timeouts.retransmission, 0U);
            EXPECT_GT(timeouts.session, timeouts.retransmission);
        }
    }
}

}  // namespace
}  // namespace platform
