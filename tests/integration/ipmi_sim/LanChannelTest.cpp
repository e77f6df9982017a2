// How requests over UDP are repeated, against a socket that plays the controller.
#include <gmock/gmock.h>
#include <integration/ipmi_sim/LoopbackSocket.h>
#include <platform/service_processor/TransportError.h>
#include <platform/service_processor/lan/LanChannel.h>

#include <cerrno>
#include <thread>

namespace platform::lan {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLimit{400};
constexpr Time kNever = Time::max();
constexpr auto kPatience = LanChannel::Patience::Long;  // half of the limit

TimeAllowance Allowance(const std::atomic<bool>* stop = nullptr) {
    return {.limit = kLimit, .end = kNever, .stop = stop};
}

class Channel : public testing::Test {
protected:
    // Answers the packet that has come with one of this byte.
    void Answer(std::uint8_t byte) const {
        const auto request = controller.Receive();
        ASSERT_TRUE(request);
        controller.Send(request->from, Bytes{byte});
    }

    const LoopbackSocket controller;
    const std::uint16_t port = controller.BindAnyPort();
};

TEST_F(Channel, AnswerToTheFirstPacketAfterTheSecondOne_IsTaken) {
    LanChannel channel("127.0.0.1", port, Allowance(), kNever);
    std::uint8_t packets = 0;
    Bytes taken;
    const int sent = channel.Exchange(
        [&] {
            if (++packets == 2) Answer(7);
            return Bytes{packets};
        },
        [&](ByteView packet) -> std::optional<Flaw> {
            taken.assign(packet.begin(), packet.end());
            return std::nullopt;
        },
        kPatience);
    EXPECT_EQ(sent, 2);
    EXPECT_EQ(taken, Bytes{7});
}

TEST_F(Channel, AnswerBehindAnUnusableOne_IsTaken) {
    LanChannel channel("127.0.0.1", port, Allowance(), kNever);
    std::uint8_t packets = 0;
    Bytes taken;
    channel.Exchange(
        [&] {
            if (++packets > 1) Answer(packets);
            return Bytes{packets};
        },
        [&](ByteView packet) -> std::optional<Flaw> {
            if (packet.front() == 2) {
                Answer(9);
                return Flaw::Checksum;
            }
            taken.assign(packet.begin(), packet.end());
            return std::nullopt;
        },
        kPatience);
    EXPECT_EQ(taken, Bytes{9});
}

// A controller that works one request at a time answers the repetition, then the next request: the
// second answer comes later than a limit after its request.
TEST_F(Channel, AnswerToARepetition_RestartsTheWait) {
    LanChannel channel("127.0.0.1", port, Allowance(), kNever);
    const auto take = [](ByteView) { return std::nullopt; };
    int packets = 0;
    channel.Exchange(
        [&] {
            if (++packets == 2) Answer(1);
            return Bytes{1};
        },
        take, kPatience);
    const auto repetition = controller.Receive();
    ASSERT_TRUE(repetition);

    std::thread slow([&] {
        for (const std::uint8_t answer : Bytes{1, 2}) {
            std::this_thread::sleep_for(kLimit * 3 / 4);
            controller.Send(repetition->from, Bytes{answer});
        }
    });
    int sent = 0;
    EXPECT_NO_THROW(sent = channel.Exchange([] { return Bytes{2}; },
                                            [](ByteView packet) {
                                                return packet.front() == 2
                                                           ? std::nullopt
                                                           : std::optional(Flaw::Late);
                                            },
                                            kPatience));
    slow.join();
    EXPECT_GE(sent, 1);
}

TEST_F(Channel, NothingUsable_IsSilenceThatCountsWhatCame) {
    LanChannel channel("127.0.0.1", port, Allowance(), kNever);
    int packets = 0;
    try {
        channel.Exchange(
            [&] {
                if (++packets > 1) Answer(1);
                return Bytes{1};
            },
            [](ByteView) { return Flaw::Command; }, kPatience);
        FAIL() << "an answer was taken";
    } catch (const NoResponse& noResponse) {
        EXPECT_EQ(noResponse.unusable.InWords(), "1 answer to another command");
        EXPECT_EQ(noResponse.networkError, 0);
    }
    EXPECT_EQ(packets, 2);
}

TEST_F(Channel, PortWithoutAListener_IsSilenceWithTheReason) {
    const std::uint16_t closedPort = LoopbackSocket().BindAnyPort();
    LanChannel channel("127.0.0.1", closedPort, Allowance(), kNever);
    try {
        channel.Exchange([] { return Bytes{1}; }, [](ByteView) { return std::nullopt; }, kPatience);
        FAIL() << "an answer was taken";
    } catch (const NoResponse& noResponse) {
        EXPECT_EQ(noResponse.networkError, ECONNREFUSED);
    }
}

TEST_F(Channel, DeadlineThatIsOver_SendsNothing) {
    LanChannel channel("127.0.0.1", port, Allowance(), Now());
    EXPECT_THROW(
        channel.Exchange([] { return Bytes{1}; }, [](ByteView) { return std::nullopt; }, kPatience),
        NoResponse);
    EXPECT_FALSE(controller.Receive());
}

TEST_F(Channel, StopFlag_EndsTheWaiting) {
    std::atomic<bool> stop = false;
    LanChannel channel("127.0.0.1", port, Allowance(&stop), kNever);
    try {
        channel.Exchange(
            [&] {
                stop = true;
                return Bytes{1};
            },
            [](ByteView) { return std::nullopt; }, kPatience);
        FAIL() << "an answer was taken";
    } catch (const TransportError& error) {
        EXPECT_EQ(error.AsTrouble().code, "interrupted");
    }
}

TEST_F(Channel, LastWordWithoutAnAnswer_IsSentOnce) {
    LanChannel channel("127.0.0.1", port, Allowance(), kNever);
    int packets = 0;
    channel.Finish(
        [&] {
            ++packets;
            return Bytes{1};
        },
        [](ByteView) { return std::nullopt; });
    EXPECT_EQ(packets, 1);
}

}  // namespace
}  // namespace platform::lan
