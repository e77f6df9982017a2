// A network between a program and a controller that is not as good as it should be: passes on the
// packets of the loopback interface, in a thread of its own, until the object ends.
//
//     const UdpRelay relay(simulator.Port(), {.losesRequests = true});
//     ... reach the controller at 127.0.0.1, relay.Port() ...
#pragma once

#include <chrono>
#include <cstdint>
#include <limits>
#include <thread>

struct Network {
    static constexpr int kNever = std::numeric_limits<int>::max();

    // Of the packets of that direction, every second one is lost.
    bool losesRequests = false;
    bool losesAnswers = false;

    // The controller's packets to one port of the program are late from the n-th (from 0) on.
    int lateFrom = kNever;
    std::chrono::milliseconds delay{0};

    // So many packets of the controller are passed on in all.
    int answers = kNever;
};

class UdpRelay {
public:
    UdpRelay(std::uint16_t controllerPort, Network network);
    UdpRelay(const UdpRelay&) = delete;
    UdpRelay& operator=(const UdpRelay&) = delete;
    ~UdpRelay();

    std::uint16_t Port() const { return port; }

private:
    std::uint16_t port = 0;
    std::jthread thread;
};
