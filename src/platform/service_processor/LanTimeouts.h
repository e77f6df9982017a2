// How long FreeIPMI's LAN session waits, and how often it asks again.
#pragma once

#include <chrono>

namespace platform {

// A LAN request to a silent controller ends within this time, sessions and retries included.
constexpr std::chrono::milliseconds kLanTotal{10000};

// The longest silence: it leaves time for packets that were lost before it.
constexpr std::chrono::milliseconds kLanLongestSilence{7000};
constexpr std::chrono::milliseconds kLanShortestSilence{1000};

// As FreeIPMI takes them, in milliseconds.
struct LanTimeouts {
    unsigned int session;
    unsigned int retransmission;
};

// The limit of the settings, as far as a LAN request can keep it.
std::chrono::milliseconds LanSilence(std::chrono::milliseconds limit);

// FreeIPMI sends again after one, two and four retransmission times, and looks only then whether
// the session time since the last packet is over. A quarter of the silence, and a session time
// between the second and the last look, make three packets and an end after exactly the silence.
LanTimeouts TimeoutsFor(std::chrono::milliseconds silence);

}  // namespace platform
