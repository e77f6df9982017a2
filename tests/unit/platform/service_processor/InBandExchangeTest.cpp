// The in-band way, against a kernel that is played.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <linux/ipmi.h>
#include <platform/service_processor/inband/InBandTransport.h>

#include <cerrno>

#include "FakeClock.h"
#include "FakeKernel.h"
#include "TroubleOf.h"

namespace platform {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr TimeAllowance kAllowance = ShareFrom(Time(), milliseconds(4000));

class InBandExchange : public testing::Test {
protected:
    void SetUp() override { FakeKernel::Reset(); }
    void TearDown() override { EXPECT_THAT(FakeKernel::descriptors, IsEmpty()); }

    IpmiAnswer Send() {
        return InBandTransport("/dev/ipmi0")
            .Send({.netFn = 0x3A, .lun = 0x02, .command = 0x09, .data = {0x11}}, kAllowance);
    }

    std::optional<ThrownTrouble> Trouble() {
        return TroubleOf([&] { Send(); });
    }

    const Time begin = FakeClock::now;
    milliseconds Passed() const {
        return std::chrono::duration_cast<milliseconds>(FakeClock::now - begin);
    }
};

TEST_F(InBandExchange, Request_ReachesTheControllerOfTheDevice) {
    FakeKernel::messages = {{.data = {0x00}}};
    Send();

    ASSERT_THAT(FakeKernel::requests, SizeIs(1));
    const FakeKernel::Request& request = FakeKernel::requests[0];
    EXPECT_EQ(request.path, "/dev/ipmi0");
    EXPECT_EQ(request.addressType, IPMI_SYSTEM_INTERFACE_ADDR_TYPE);
    EXPECT_EQ(request.channel, IPMI_BMC_CHANNEL);
    EXPECT_EQ(request.lun, 0x02);
    EXPECT_EQ(request.netFn, 0x3A);
    EXPECT_EQ(request.command, 0x09);
    EXPECT_THAT(request.data, ElementsAre(0x11));
}

TEST_F(InBandExchange, Device_IsNotHandedToOtherPrograms) {
    FakeKernel::messages = {{.data = {0x00}}};
    Send();
    EXPECT_EQ(FakeKernel::openFlags, O_RDWR | O_CLOEXEC | O_NONBLOCK);
}

TEST_F(InBandExchange, TwoCommands_HaveTwoMessageNumbers) {
    FakeKernel::messages = {{.data = {0x00}}, {.data = {0x00}}};
    Send();
    Send();
    EXPECT_NE(FakeKernel::requests[0].messageId, FakeKernel::requests[1].messageId);
}

TEST_F(InBandExchange, Answer_GivesCodeAndData) {
    FakeKernel::messages = {{.after = milliseconds(3999), .data = {0x00, 0x01, 0x80}}};

    const IpmiAnswer answer = Send();

    EXPECT_EQ(answer.completionCode, 0x00);
    EXPECT_THAT(answer.data, ElementsAre(0x01, 0x80));
    EXPECT_EQ(answer.attempts, 1);
}

// 0xC3 is what the driver itself answers when the controller gave up half way.
TEST_F(InBandExchange, CompletionCodeOfTheDriver_IsPassedOn) {
    FakeKernel::messages = {{.data = {0xC3}}};
    EXPECT_EQ(Send().completionCode, 0xC3);
}

TEST_F(InBandExchange, Silence_EndsAtTheTimeLimit) {
    EXPECT_EQ(Trouble(), (ThrownTrouble{TroubleCode::NoAnswer,
                                        "The controller behind /dev/ipmi0 did not answer within "
                                        "4 s. If it is slow, raise its time_limit."}));
    EXPECT_EQ(Passed(), milliseconds(4000));
}

TEST_F(InBandExchange, StopFlag_EndsTheWaiting) {
    const std::atomic<bool> stop = true;
    TimeAllowance allowance = kAllowance;
    allowance.stop = &stop;
    EXPECT_EQ(TroubleOf([&] {
                  InBandTransport("/dev/ipmi0")
                      .Send({.netFn = 0x3A, .lun = 0, .command = 0x09}, allowance);
              })->kind,
              TroubleCode::Interrupted);
    EXPECT_EQ(Passed(), milliseconds(0));
}

TEST_F(InBandExchange, WaitingWithAStopFlag_LastsUntilTheAnswerOrTheLimit) {
    const std::atomic<bool> stop = false;
    TimeAllowance allowance = kAllowance;
    allowance.stop = &stop;
    const auto send = [&] {
        return InBandTransport("/dev/ipmi0")
            .Send({.netFn = 0x3A, .lun = 0, .command = 0x09}, allowance);
    };
    EXPECT_EQ(TroubleOf(send)->kind, TroubleCode::NoAnswer);
    EXPECT_EQ(Passed(), milliseconds(4000));
}

TEST_F(InBandExchange, AnswerBehindTheLimit_IsNotWaitedFor) {
    FakeKernel::messages = {{.after = milliseconds(4001), .data = {0x00, 0x01}}};
    EXPECT_EQ(Trouble()->kind, TroubleCode::NoAnswer);
}

TEST_F(InBandExchange, AnswersToOtherRequestsFirst_AreIgnored) {
    FakeKernel::messages = {{.messageId = -1, .data = {0x00, 0x07}},
                            {.netFn = 0x07, .data = {0x00, 0x07}},
                            {.command = 0x01, .data = {0x00, 0x07}},
                            {.addressType = IPMI_IPMB_ADDR_TYPE, .data = {0x00, 0x07}},
                            {.data = {0x00, 0x01}}};
    EXPECT_THAT(Send().data, ElementsAre(0x01));
}

TEST_F(InBandExchange, AnswersToOtherRequestsOnly_AreCountedByKind) {
    FakeKernel::messages = {{.messageId = -1, .data = {0x00, 0x07}},
                            {.netFn = 0x07, .data = {0x00, 0x07}},
                            {.addressType = IPMI_IPMB_ADDR_TYPE, .data = {0x00, 0x07}},
                            {.netFn = 0x3A, .data = {0x00, 0x07}},
                            {.command = 0x01, .data = {0x00, 0x07}}};
    EXPECT_EQ(Trouble(),
              (ThrownTrouble{TroubleCode::UnusableAnswers,
                             "The controller behind /dev/ipmi0 sent nothing usable within 4 s, but "
                             "1 answer with another sequence number, 1 answer from another "
                             "responder address, 2 answers with another network function, 1 answer "
                             "to another command. Try again; if that does not help, restart the "
                             "controller."}));
}

TEST_F(InBandExchange, EndlessAnswersToOthers_EndAtTheTimeLimit) {
    for (int message = 0; message < 1000; ++message) {
        FakeKernel::messages.push_back({.after = milliseconds(10), .command = 0x01, .data = {0}});
    }
    EXPECT_EQ(Trouble()->kind, TroubleCode::UnusableAnswers);
    EXPECT_EQ(Passed(), milliseconds(4000));
}

TEST_F(InBandExchange, EventsAndRequestsOfOthers_AreNoAnswers) {
    FakeKernel::messages = {{.kind = IPMI_ASYNC_EVENT_RECV_TYPE, .data = {0x02}},
                            {.kind = IPMI_CMD_RECV_TYPE, .data = {0x03}}};
    EXPECT_EQ(Trouble()->kind, TroubleCode::NoAnswer);
}

TEST_F(InBandExchange, AnswerWithoutCompletionCode_IsTooShort) {
    FakeKernel::messages = {{.data = {}}};
    EXPECT_EQ(Trouble(), (ThrownTrouble{TroubleCode::UnusableAnswers,
                                        "The controller's answer is too short: it has no "
                                        "completion code. Try again; if that does not help, "
                                        "restart the controller."}));
}

TEST_F(InBandExchange, AnswerWithoutData_IsTheCompletionCode) {
    FakeKernel::messages = {{.data = {0x00}}};
    const IpmiAnswer answer = Send();
    EXPECT_EQ(answer.completionCode, 0x00);
    EXPECT_THAT(answer.data, IsEmpty());
}

TEST_F(InBandExchange, AnswerThatIsTooLong_IsCut) {
    FakeKernel::messages = {{.data = std::vector<std::uint8_t>(300, 0x01)}};
    const IpmiAnswer answer = Send();
    EXPECT_EQ(answer.completionCode, 0x01);
    EXPECT_THAT(answer.data, SizeIs(IPMI_MAX_MSG_LENGTH - 1));
}

TEST_F(InBandExchange, Signals_AreNoTrouble) {
    FakeKernel::openErrors = {EINTR};
    FakeKernel::sendErrors = {EINTR, EINTR};
    FakeKernel::pollErrors = {EINTR};
    FakeKernel::receiveErrors = {EINTR};
    FakeKernel::messages = {{.data = {0x00, 0x01}}};

    EXPECT_THAT(Send().data, ElementsAre(0x01));
    EXPECT_THAT(FakeKernel::requests, SizeIs(1));
}

TEST_F(InBandExchange, MessageThatIsNotThereYet_IsWaitedFor) {
    FakeKernel::receiveErrors = {EAGAIN};
    FakeKernel::messages = {{.data = {0x00, 0x01}}};
    EXPECT_THAT(Send().data, ElementsAre(0x01));
}

struct Failure {
    const char* call;
    int error;
    ThrownTrouble trouble;
};

class FailingCall : public InBandExchange, public testing::WithParamInterface<Failure> {
protected:
    static std::deque<int>& Errors(const std::string& call) {
        if (call == "open") return FakeKernel::openErrors;
        if (call == "send") return FakeKernel::sendErrors;
        return call == "poll" ? FakeKernel::pollErrors : FakeKernel::receiveErrors;
    }
};

TEST_P(FailingCall, Error_IsPutIntoWords) {
    Errors(GetParam().call) = {GetParam().error};
    FakeKernel::messages = {{.data = {0x00, 0x01}}};
    EXPECT_EQ(Trouble(), GetParam().trouble);
}

INSTANTIATE_TEST_SUITE_P(
    Errors, FailingCall,
    testing::Values(
        Failure{"open",
                ENOENT,
                {TroubleCode::NoDevice,
                 "The device /dev/ipmi0 cannot be opened: No such file or directory. Check the "
                 "setting device, and that the kernel module ipmi_devintf is loaded."}},
        Failure{"open",
                ENODEV,
                {TroubleCode::NoDevice,
                 "The device /dev/ipmi0 cannot be opened: No such device. Check the setting "
                 "device, and "
                 "that the kernel module ipmi_devintf is loaded."}},
        Failure{"open",
                EACCES,
                {TroubleCode::Permission,
                 "The device /dev/ipmi0 cannot be opened: Permission denied. Run as root, or as a "
                 "user who may read and write it."}},
        Failure{"open",
                EBUSY,
                {TroubleCode::DeviceBusy,
                 "The device /dev/ipmi0 cannot be opened: Device or resource busy. Too many "
                 "programs use it: end one of them, or try again."}},
        Failure{"send",
                ENODEV,
                {TroubleCode::Gone,
                 "The device /dev/ipmi0 has gone: No such device. Is its kernel module (such as "
                 "ipmi_si) loaded?"}},
        Failure{"send",
                EBUSY,
                {TroubleCode::DeviceBusy,
                 "The kernel's driver behind /dev/ipmi0 is busy: Device or resource busy. Try "
                 "again."}},
        Failure{"send",
                ENOTTY,
                {TroubleCode::Other,
                 "The device /dev/ipmi0 does not work as an IPMI device: Inappropriate ioctl for "
                 "device. Check that it belongs to the kernel module ipmi_devintf."}},
        Failure{"send",
                ENOMEM,
                {TroubleCode::Other,
                 "The request to /dev/ipmi0 failed: Cannot allocate memory. Try again; if that "
                 "does not help, restart the controller."}},
        Failure{"receive",
                ENODEV,
                {TroubleCode::Gone,
                 "The device /dev/ipmi0 has gone: No such device. Is its kernel module (such as "
                 "ipmi_si) loaded?"}},
        Failure{"poll",
                ENOMEM,
                {TroubleCode::Other,
                 "The request to /dev/ipmi0 failed: Cannot allocate memory. Try again; if that "
                 "does not help, restart the controller."}}),
    [](const auto& failure) {
        return std::string(failure.param.call) + std::to_string(failure.param.error);
    });

TEST_F(InBandExchange, DeviceThatGoesAway_IsNamed) {
    FakeKernel::hangsUp = true;
    EXPECT_EQ(Trouble()->kind, TroubleCode::Gone);
}

TEST_F(InBandExchange, ThousandCommands_LeaveNoDescriptor) {
    for (int command = 0; command < 1000; ++command) {
        FakeKernel::messages = {{.data = {0x00, 0x01}}};
        Send();
        ASSERT_THAT(FakeKernel::descriptors, IsEmpty());
    }
}

}  // namespace
}  // namespace platform
