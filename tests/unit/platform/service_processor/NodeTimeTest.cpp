// How long the commands for one controller may take together, by a clock that stands still.
#include <fakes/FakeDiagnostics.h>
#include <gmock/gmock.h>
#include <platform/service_processor/ControllerNode.h>
#include <platform/service_processor/IpmiBuffer.h>

#include "FakeClock.h"

namespace platform {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using testing::ElementsAre;

constexpr seconds kRunLimit{4};
constexpr seconds kShare = kShareInLimits * kRunLimit + seconds(5);

// Answers after the time given.
class LateTransport final : public Transport {
public:
    explicit LateTransport(milliseconds answerTime) : time(answerTime) {}

    IpmiAnswer Send(const IpmiRequest&, TimeAllowance allowance) override {
        end = allowance.end;
        FakeClock::Pass(time);
        return {.completionCode = 0, .data = {0x00}};
    }

    std::string Describe() const override { return "late"; }

    static inline Time end;  // of the last allowance

private:
    milliseconds time;
};

class NodeTime : public testing::Test {
protected:
    void SetUp() override {
        FakeDiagnostics::Reset();
        FakeClock::Pass(std::chrono::hours(1));
    }

    static bool Send(milliseconds time, std::optional<SPShare> share) {
        IpmiBuffer buffer = RequestBuffer(kI2cBusStatus);
        int length = 250;
        ControllerNode object(
            {.node = 0, .nodeCount = 1, .askFamily = nullptr, .timeLimit = kRunLimit},
            std::make_unique<LateTransport>(time));
        if (share) object.Use(*share);
        return object.sendIPMICommand(buffer.data(), &length, 256, true);
    }
};

TEST_F(NodeTime, CommandsOfAShare_EndWithIt) {
    const Time begin = Now();
    EXPECT_TRUE(Send(seconds(9), SPShare{.begin = begin}));
    EXPECT_TRUE(Send(seconds(9), SPShare{.begin = begin}));
    EXPECT_EQ(LateTransport::end, begin + kShare);
}

TEST_F(NodeTime, ShareThatIsOver_SendsNothing) {
    const SPShare share{.begin = Now()};
    EXPECT_TRUE(Send(kShare, share));

    EXPECT_FALSE(Send(seconds(1), share));

    EXPECT_THAT(FakeDiagnostics::Texts(NQUVZDX20::kLogError),
                ElementsAre("SP: node 0 (late): network function 0x3a, command 0x09: The command "
                            "was not sent: the commands before it have used up the controller's "
                            "time. Find out why it is slow, or raise its time_limit. (no "
                            "completion code, 0 attempts, 0 ms)"));
}

TEST_F(NodeTime, NextShare_IsWhole) {
    EXPECT_TRUE(Send(kShare, SPShare{.begin = Now()}));
    EXPECT_TRUE(Send(seconds(1), SPShare{.begin = Now()}));
    EXPECT_EQ(LateTransport::end, Now() - seconds(1) + kShare);
}

TEST_F(NodeTime, CommandWithoutAShare_HasItsOwn) {
    EXPECT_TRUE(Send(kShare, std::nullopt));
    EXPECT_TRUE(Send(seconds(1), std::nullopt));
}

}  // namespace
}  // namespace platform
