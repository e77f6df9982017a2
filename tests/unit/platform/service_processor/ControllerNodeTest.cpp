#include <fakes/FakeDiagnostics.h>
#include <gmock/gmock.h>
#include <platform/diagnostics/LogNode.h>
#include <platform/service_processor/ControllerNode.h>
#include <platform/service_processor/LiveObjects.h>

#include <array>
#include <functional>
#include <new>
#include <thread>

namespace platform {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::MatchesRegex;

class ScriptedTransport final : public Transport {
public:
    using Script = std::function<IpmiAnswer(const IpmiRequest&, TimeAllowance)>;

    explicit ScriptedTransport(Script answerScript) : script(std::move(answerScript)) {}

    IpmiAnswer Send(const IpmiRequest& request, TimeAllowance allowance) override {
        return script(request, allowance);
    }

    std::string Describe() const override { return "scripted"; }

private:
    Script script;
};

class ControllerNodeTest : public testing::Test {
protected:
    void SetUp() override { FakeDiagnostics::Reset(); }

    std::unique_ptr<ControllerNode> Node(ScriptedTransport::Script script) {
        return std::make_unique<ControllerNode>(
            NodeFacts{.node = 3,
                      .nodeCount = 5,
                      .askFamily = [] { return OxcAnswer{.isOxc = true, .trouble = {}}; },
                      .timeLimit = std::chrono::seconds(4)},
            std::make_unique<ScriptedTransport>(std::move(script)));
    }

    bool Send(ScriptedTransport::Script script) {
        return Node(std::move(script))->sendIPMICommand(buffer.data(), &length, 256, true);
    }

    static auto Line(NQUVZDX20::EZDXLogSeverity severity, const std::string& pattern) {
        return AllOf(Field(&LogLine::severity, severity),
                     Field(&LogLine::text, MatchesRegex(pattern)));
    }

    std::array<unsigned char, 256> buffer = {0x01, 0x20, 0x3A, 0x00, 0x09};
    int length = 250;
};

TEST_F(ControllerNodeTest, Facts_AreTheAnswersThatNeedNoController) {
    const auto node = Node(nullptr);
    EXPECT_EQ(node->GetNumberBMCNode(), 5);
    EXPECT_TRUE(node->IsOxcControllerMachine());
}

TEST_F(ControllerNodeTest, Request_ReachesTheTransportWithTheTimeAllowed) {
    IpmiRequest sent;
    TimeAllowance given{};
    const Time before = Now();
    Send([&](const IpmiRequest& request, TimeAllowance allowance) {
        sent = request;
        given = allowance;
        return IpmiAnswer{};
    });

    EXPECT_EQ(sent.netFn, 0x3A);
    EXPECT_EQ(sent.command, 0x09);
    EXPECT_EQ(given.limit, std::chrono::seconds(4));
    EXPECT_GE(given.end, before + std::chrono::seconds(25));
    EXPECT_LE(given.end, Now() + std::chrono::seconds(25));
    EXPECT_EQ(given.stop, nullptr);
}

TEST_F(ControllerNodeTest, Answer_IsWrittenAndLoggedAtSeverityFour) {
    EXPECT_TRUE(Send([](const auto&, auto) {
        return IpmiAnswer{.completionCode = 0x00, .data = {0x01, 0x02}};
    }));

    EXPECT_EQ(length, 3);
    EXPECT_EQ(buffer[8], 0x00);
    EXPECT_EQ(buffer[9], 0x01);
    EXPECT_THAT(FakeDiagnostics::Lines(),
                ElementsAre(Line(NQUVZDX20::kLogFinest,
                                 "SP: node 3 \\(scripted\\): network function 0x3a, command 0x09: "
                                 "completion code 0x00, 2 data bytes, 1 attempt, [0-9]+ ms")));
}

TEST_F(ControllerNodeTest, SecondAttempt_IsCountedInTheLog) {
    Send([](const auto&, auto) {
        return IpmiAnswer{.completionCode = 0x00, .data = {0x01}, .attempts = 2};
    });

    EXPECT_THAT(FakeDiagnostics::Lines(),
                ElementsAre(Line(NQUVZDX20::kLogFinest,
                                 ".*: completion code 0x00, 1 data byte, 2 attempts, [0-9]+ ms")));
}

TEST_F(ControllerNodeTest, AnswerWithoutData_IsDeliveredAndLoggedAsTooShort) {
    EXPECT_TRUE(Send([](const auto&, auto) { return IpmiAnswer{.completionCode = 0x00}; }));

    EXPECT_EQ(length, 1);
    EXPECT_THAT(FakeDiagnostics::Lines(),
                ElementsAre(Line(NQUVZDX20::kLogError,
                                 ".*: completion code 0x00, 0 data bytes \\(the answer is too "
                                 "short\\), 1 attempt, [0-9]+ ms")));
}

TEST_F(ControllerNodeTest, Identify_GivesTheDeviceId) {
    IpmiRequest sent;
    const auto node = Node([&](const IpmiRequest& request, auto) {
        sent = request;
        return IpmiAnswer{.completionCode = 0x00, .data = std::vector<std::uint8_t>(11, 0x01)};
    });

    const std::optional<DeviceId> id = node->Identify();

    EXPECT_EQ(sent.netFn, 0x06);
    EXPECT_EQ(sent.command, 0x01);
    ASSERT_TRUE(id);
    EXPECT_EQ(id->product, 0x0101);
}

TEST_F(ControllerNodeTest, IdentifyWithAShortAnswer_IsLoggedAndGivesNothing) {
    const auto node =
        Node([](const auto&, auto) { return IpmiAnswer{.completionCode = 0x00, .data = {0x01}}; });

    EXPECT_EQ(node->Identify(), std::nullopt);

    EXPECT_THAT(FakeDiagnostics::Lines(),
                ElementsAre(Line(NQUVZDX20::kLogError,
                                 "SP: node 3 \\(scripted\\): network function 0x06, command 0x01: "
                                 "The controller's answer to Get Device ID is too short: .*")));
}

struct CodeCase {
    std::uint8_t code;
    std::string meaning;
};

class CompletionCodeTest : public ControllerNodeTest,
                           public testing::WithParamInterface<CodeCase> {};

TEST_P(CompletionCodeTest, OtherThanZero_IsDeliveredAndLoggedAtSeverityTwo) {
    EXPECT_TRUE(
        Send([](const auto&, auto) { return IpmiAnswer{.completionCode = GetParam().code}; }));

    EXPECT_EQ(length, 2);
    EXPECT_EQ(buffer[8], GetParam().code);
    EXPECT_THAT(
        FakeDiagnostics::Lines(),
        ElementsAre(Line(NQUVZDX20::kLogError, ".*: completion code " + GetParam().meaning +
                                                   ", 0 data bytes, 1 attempt, [0-9]+ ms")));
}

INSTANTIATE_TEST_SUITE_P(
    Codes, CompletionCodeTest,
    testing::Values(CodeCase{0xFF, "0xff \\(the controller is busy\\)"},
                    CodeCase{0xC0, "0xc0 \\(the controller is busy\\)"},
                    CodeCase{0xC1, "0xc1 \\(the controller does not know the command\\)"},
                    CodeCase{0xC3, "0xc3 \\(the controller did not answer the command in time\\)"},
                    CodeCase{0xD2, "0xd2 \\(the controller is still starting\\)"},
                    CodeCase{0xD4,
                             "0xd4 \\(the user's privilege level is too low for the command\\)"},
                    CodeCase{0xD5, "0xd5 \\(the controller could not carry out the command\\)"}));

TEST_F(ControllerNodeTest, Trouble_LeavesBufferAndLengthAndIsLoggedAtSeverityTwo) {
    const auto before = buffer;

    EXPECT_FALSE(Send([](const auto&, auto) -> IpmiAnswer {
        throw TransportError(TroubleCode::NoAnswer, "The controller sleeps.", "", 2);
    }));

    EXPECT_EQ(buffer, before);
    EXPECT_EQ(length, 250);
    EXPECT_THAT(FakeDiagnostics::Lines(),
                ElementsAre(Line(NQUVZDX20::kLogError,
                                 "SP: node 3 \\(scripted\\): network function 0x3a, command 0x09: "
                                 "The controller sleeps. \\(no completion code, 2 attempts, "
                                 "[0-9]+ ms\\)")));
}

TEST_F(ControllerNodeTest, LastExchange_TellsAttemptsAndTrouble) {
    int calls = 0;
    const auto node = Node([&](const auto&, auto) -> IpmiAnswer {
        if (++calls > 1) return {.completionCode = 0, .data = {0}, .attempts = 3};
        throw TransportError(TroubleCode::NoAnswer, "The controller sleeps.", "Wake it.", 2);
    });
    EXPECT_FALSE(node->sendIPMICommand(buffer.data(), &length, 256, true));
    EXPECT_EQ(node->LastExchange().attempts, 2);
    EXPECT_EQ(node->LastExchange().trouble,
              (Trouble{"no_answer", "The controller sleeps.", "Wake it."}));

    EXPECT_TRUE(node->sendIPMICommand(buffer.data(), &length, 256, true));
    EXPECT_EQ(node->LastExchange().attempts, 3);
    EXPECT_FALSE(node->LastExchange().trouble);
}

TEST_F(ControllerNodeTest, FamilyTrouble_IsThatOfTheLastQuestion) {
    ControllerNode node({.node = 0,
                         .nodeCount = 1,
                         .askFamily =
                             [] {
                                 return OxcAnswer{false, Trouble{"no_answer", "", ""}};
                             },
                         .timeLimit = std::chrono::seconds(4)},
                        nullptr);
    EXPECT_FALSE(node.FamilyTrouble());
    EXPECT_FALSE(node.IsOxcControllerMachine());
    EXPECT_EQ(node.FamilyTrouble()->code, "no_answer");
}

TEST_F(ControllerNodeTest, StopFlag_ReachesTheTransport) {
    std::atomic<bool> stop = false;
    bool isStopped = false;
    int calls = 0;
    const auto node = Node([&](const auto&, TimeAllowance allowance) {
        ++calls;
        stop = true;
        isStopped = allowance.IsStopped();
        return IpmiAnswer{};
    });
    node->Use({.begin = Now(), .stop = &stop});
    EXPECT_TRUE(node->sendIPMICommand(buffer.data(), &length, 256, true));
    EXPECT_TRUE(isStopped);

    EXPECT_FALSE(node->sendIPMICommand(buffer.data(), &length, 256, true));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(node->LastExchange().trouble->code, "interrupted");
    EXPECT_EQ(node->LastExchange().attempts, 0);
}

TEST_F(ControllerNodeTest, OtherException_IsLoggedAndNotDelivered) {
    EXPECT_FALSE(Send(
        [](const auto&, auto) -> IpmiAnswer { throw std::runtime_error("a lock is broken"); }));

    EXPECT_EQ(length, 250);
    EXPECT_THAT(FakeDiagnostics::Lines(),
                ElementsAre(Line(NQUVZDX20::kLogError,
                                 ".*: The request could not be sent: a lock is broken. Try again; "
                                 "if that does not help, restart the controller. \\(no completion "
                                 "code, 1 attempt, [0-9]+ ms\\)")));
}

TEST_F(ControllerNodeTest, LackOfMemory_ReachesTheCaller) {
    EXPECT_THROW(Send([](const auto&, auto) -> IpmiAnswer { throw std::bad_alloc(); }),
                 std::bad_alloc);
}

TEST_F(ControllerNodeTest, LinesOfExchanges_AreAboutTheirNode) {
    const NQUVZDX20::LogNode caller(1);
    Send([](const auto&, auto) { return IpmiAnswer{.completionCode = 0xC1}; });
    Send([](const auto&, auto) -> IpmiAnswer { throw std::runtime_error("a lock is broken"); });
    Node([](const auto&, auto) { return IpmiAnswer{}; })->Identify();

    EXPECT_THAT(FakeDiagnostics::Nodes(), ElementsAre(3, 3, 3));
    EXPECT_EQ(NQUVZDX20::LogNode::Current(), 1);
}

class BufferSizeTest : public ControllerNodeTest, public testing::WithParamInterface<int> {};

TEST_P(BufferSizeTest, TooSmall_IsRefusedWithoutSending) {
    bool sent = false;
    const auto node = Node([&](const auto&, auto) {
        sent = true;
        return IpmiAnswer{};
    });

    EXPECT_FALSE(node->sendIPMICommand(buffer.data(), &length, GetParam(), true));

    EXPECT_FALSE(sent);
    EXPECT_EQ(FakeDiagnostics::Lines().size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Sizes, BufferSizeTest, testing::Values(-1, 0, 5, 8));

TEST_F(ControllerNodeTest, ObjectsAlive_AreCountedUntilTheyAreDeleted) {
    const std::size_t before = LiveObjects::Count();
    auto first = Node(nullptr);
    const auto second = Node(nullptr);
    EXPECT_EQ(LiveObjects::Count(), before + 2);

    first.reset();

    EXPECT_EQ(LiveObjects::Count(), before + 1);
}

TEST_F(ControllerNodeTest, ObjectThatIsNeverDeleted_StaysReachable) {
    // Nobody holds the address; a leak checker finds the object through the registry only.
    const std::size_t before = LiveObjects::Count();
    static_cast<void>(Node(nullptr).release());
    EXPECT_EQ(LiveObjects::Count(), before + 1);
}

TEST_F(ControllerNodeTest, ObjectsOfSeveralThreads_AreCountedRight) {
    const std::size_t before = LiveObjects::Count();
    {
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < 4; ++thread) {
            threads.emplace_back([this] {
                for (int object = 0; object < 200; ++object) Node(nullptr);
            });
        }
    }
    EXPECT_EQ(LiveObjects::Count(), before);
}

}  // namespace
}  // namespace platform
