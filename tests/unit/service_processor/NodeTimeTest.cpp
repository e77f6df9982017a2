// How long the commands of a run may take together, by a clock that stands still.
#include <fakes/FakeDiagnostics.h>
#include <gmock/gmock.h>
#include <platform/service_processor/ControllerNode.h>

#include <array>

#include "FakeClock.h"

namespace platform {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

constexpr seconds kRunLimit{4};

// Takes all the time that it may, or the time given, and answers.
struct Behaviour {
    std::optional<milliseconds> time = std::nullopt;
    std::uint8_t completionCode = 0;
};

class PlayedTransport final : public Transport {
public:
    explicit PlayedTransport(Behaviour how) : behaviour(how) {}

    IpmiAnswer Send(const IpmiRequest&, TimeAllowance allowance) override {
        FakeClock::Pass(std::min(behaviour.time.value_or(allowance.total), allowance.total));
        return {.completionCode = behaviour.completionCode, .data = {0x00}};
    }

    std::string Describe() const override { return "played"; }

private:
    Behaviour behaviour;
};

class NodeTime : public testing::Test {
protected:
    void SetUp() override {
        FakeDiagnostics::Reset();
        FakeClock::Pass(std::chrono::hours(1));
        begin = FakeClock::now;
    }

    static bool Send(int node, std::uint8_t command, Behaviour behaviour) {
        std::array<unsigned char, 256> buffer = {0x01, 0x20, 0x3A, 0x00, command};
        int length = 250;
        ControllerNode object(
            {.node = node, .nodeCount = 4, .askFamily = nullptr, .timeLimit = kRunLimit},
            std::make_unique<PlayedTransport>(behaviour));
        return object.sendIPMICommand(buffer.data(), &length, buffer.size(), true);
    }

    // As the diagnostic test asks: after a busy answer that it gets, once more after 5 s.
    static bool AskStatus(int node, Behaviour behaviour) {
        const bool delivered = Send(node, 0x09, behaviour);
        if (!delivered || behaviour.completionCode != 0xFF) return delivered;
        FakeClock::Pass(seconds(5));
        return Send(node, 0x09, behaviour);
    }

    milliseconds Passed() const {
        return std::chrono::duration_cast<milliseconds>(FakeClock::now - begin);
    }

    Time begin;
};

TEST_F(NodeTime, EveryControllerAsSlowAsItMayBe_KeepsTheTimeOfTheRun) {
    for (int node = 0; node < 4; ++node) {
        AskStatus(node, {});
        Send(0, 0xC1, {});
    }
    EXPECT_LE(Passed(), 4 * (kRunLimit + seconds(5)));
}

class BusyNodeTime : public NodeTime, public testing::WithParamInterface<milliseconds> {};

TEST_P(BusyNodeTime, EveryControllerBusyAfterATime_KeepsTheTimeOfTheRun) {
    for (int node = 0; node < 4; ++node) {
        AskStatus(node, {.time = GetParam(), .completionCode = 0xFF});
        Send(0, 0xC1, {});
    }
    EXPECT_LE(Passed(), 4 * (kRunLimit + seconds(5)));
}

INSTANTIATE_TEST_SUITE_P(Times, BusyNodeTime,
                         testing::Values(milliseconds(0), milliseconds(1900), milliseconds(3700),
                                         milliseconds(3800), milliseconds(4000),
                                         milliseconds(8000)),
                         testing::PrintToStringParamName());

TEST_F(NodeTime, BusyAnswerInTime_IsDelivered) {
    EXPECT_TRUE(Send(0, 0x09, {.time = milliseconds(3750), .completionCode = 0xFF}));
}

// The run would pause 5 s, which its time does not hold.
TEST_F(NodeTime, BusyAnswerThatIsTooLateForASecondOne_IsNotDelivered) {
    EXPECT_FALSE(Send(0, 0x09, {.time = milliseconds(3751), .completionCode = 0xFF}));
    EXPECT_THAT(FakeDiagnostics::Texts(NQUVZDX20::kLogError),
                ElementsAre("SP: node 0 (played): network function 0x3a, command 0x09: The "
                            "controller is busy, and said so too late to be asked once more. Try "
                            "again, or raise its time_limit. (no completion code, 1 attempt, 3751 "
                            "ms)"));
}

TEST_F(NodeTime, SecondBusyAnswer_IsDeliveredHoweverLate) {
    EXPECT_TRUE(AskStatus(0, {.time = milliseconds(1800), .completionCode = 0xFF}));
}

TEST_F(NodeTime, NoTimeLeft_SendsNothing) {
    Send(0, 0x09, {});
    const milliseconds before = Passed();

    EXPECT_FALSE(Send(0, 0xC1, {}));

    EXPECT_EQ(Passed(), before);
    EXPECT_THAT(FakeDiagnostics::Texts(NQUVZDX20::kLogError),
                ElementsAre("SP: node 0 (played): network function 0x3a, command 0xc1: The command "
                            "was not sent: the commands before it have used up the controller's "
                            "time. Find out why it is slow, or raise its time_limit. (no "
                            "completion code, 0 attempts, 0 ms)"));
}

TEST_F(NodeTime, RunAfterASlowRun_HasItsWholeTime) {
    Send(0, 0x09, {});
    EXPECT_TRUE(Send(0, 0x09, {.time = milliseconds(8000)}));
    EXPECT_THAT(FakeDiagnostics::Texts(NQUVZDX20::kLogError), IsEmpty());
}

}  // namespace
}  // namespace platform
