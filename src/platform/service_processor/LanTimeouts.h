// How long FreeIPMI's LAN session waits, and how often it asks again.
//
// FreeIPMI waits one retransmission time, sends again, waits one more, then twice two of them, and
// so on. Behind each wait it looks whether the session time since the controller's last packet is
// over. It takes no answer that comes later than the wait behind its request. So the two times say
// together how many packets an exchange has, and when it ends: its silence.
#pragma once

#include <chrono>

namespace platform {

// As FreeIPMI takes them, in milliseconds.
struct LanTimeouts {
    unsigned int session;
    unsigned int retransmission;
};

enum class Packets {
    Four,  // for networks that lose packets; an answer may take a third of the silence at most
    Two,   // for slow controllers; an answer may take half of the silence
    One,   // of a command that is sent kBeforeOnePacket after the opening; its answer may take all
           // of the silence. An exchange of the opening has two packets and may take it twice.
};

// Makes the controller's last packet old enough for FreeIPMI's look behind the first wait. Long
// enough that a wait that ends a little late is no such look in the opening.
constexpr std::chrono::milliseconds kBeforeOnePacket{120};

// At least what FreeIPMI accepts, however short the silence.
LanTimeouts TimeoutsFor(std::chrono::milliseconds silence, Packets packets);

}  // namespace platform
