#include <integration/ipmi_sim/LoopbackSocket.h>
#include <integration/ipmi_sim/UdpRelay.h>
#include <poll.h>

#include <list>
#include <map>
#include <memory>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kPause = 10;  // milliseconds

class Loss {
public:
    explicit Loss(bool everySecond) : isLossy(everySecond) {}

    bool Hits() { return isLossy && packets++ % 2 == 1; }

private:
    bool isLossy;
    int packets = 0;
};

class Relay {
public:
    Relay(std::unique_ptr<LoopbackSocket> front, std::uint16_t controllerPort, Network behaviour)
        : socket(std::move(front)),
          controller(controllerPort),
          network(behaviour),
          lossOfRequests(behaviour.losesRequests),
          lossOfAnswers(behaviour.losesAnswers) {}

    void Run(const std::stop_token& end) {
        while (!end.stop_requested()) {
            Wait();
            while (auto request = socket->Receive()) PassRequest(*request);
            for (auto& [port, program] : programs) {
                while (auto answer = program.toController->Receive()) PassAnswer(port, *answer);
            }
            PassLateAnswers();
        }
    }

private:
    // A port of the program: the controller sees one of this relay's in its place.
    struct Program {
        std::unique_ptr<LoopbackSocket> toController = std::make_unique<LoopbackSocket>();
        int answers = 0;
    };

    struct LateAnswer {
        Clock::time_point due;
        std::uint16_t port;
        Packet packet;
    };

    void Wait() const {
        std::vector<pollfd> descriptors = {{socket->Descriptor(), POLLIN, 0}};
        for (const auto& [port, program] : programs) {
            descriptors.push_back({program.toController->Descriptor(), POLLIN, 0});
        }
        poll(descriptors.data(), descriptors.size(), kPause);
    }

    void PassRequest(const Packet& request) {
        if (!lossOfRequests.Hits()) {
            programs[request.from].toController->Send(controller, request.bytes);
        }
    }

    void PassAnswer(std::uint16_t port, Packet& answer) {
        if (lossOfAnswers.Hits() || network.answers-- <= 0) return;
        if (programs[port].answers++ >= network.lateFrom) {
            late.push_back({Clock::now() + network.delay, port, std::move(answer)});
        } else {
            socket->Send(port, answer.bytes);
        }
    }

    void PassLateAnswers() {
        while (!late.empty() && late.front().due <= Clock::now()) {
            socket->Send(late.front().port, late.front().packet.bytes);
            late.pop_front();
        }
    }

    std::unique_ptr<LoopbackSocket> socket;
    std::uint16_t controller;
    Network network;
    Loss lossOfRequests;
    Loss lossOfAnswers;
    std::map<std::uint16_t, Program> programs;
    std::list<LateAnswer> late;
};

}  // namespace

UdpRelay::UdpRelay(std::uint16_t controllerPort, Network network) {
    auto socket = std::make_unique<LoopbackSocket>();
    port = socket->BindAnyPort();
    thread = std::jthread(
        [socket = std::move(socket), controllerPort, network](const std::stop_token& end) mutable {
            Relay(std::move(socket), controllerPort, network).Run(end);
        });
}

UdpRelay::~UdpRelay() = default;
