// The LAN transport where the network or the controller is not as it should be.
#include <integration/ipmi_sim/LanFixture.h>
#include <integration/ipmi_sim/UdpRelay.h>

#include <thread>

namespace {

using testing::ElementsAre;

class LanFaults : public EachProtocol {
protected:
    Connection Through(const UdpRelay& relay) const {
        return With({.port = relay.Port(), .password = simulator.Password()});
    }

    // The controller's answers to a session that is opened without trouble; the next one is that to
    // the command. With IPMI 1.5 the simulator numbers two answers alike, so that the second one is
    // asked for again.
    static constexpr int kAnswersOfTheOpening = 5;

    // The simulator's answers to the session that ends without a privilege level.
    static int AnswersBefore() { return GetParam().name == "2.0" ? 2 : 0; }

    static std::string StoppedAnswering() {
        return std::string(
                   " stopped answering while a session was opened. Try again; if that does "
                   "not help, ") +
               (GetParam().name == "2.0" ? "set another cipher_suite, or " : "") +
               "restart the controller.";
    }

    static std::string SilentToTheCommand() {
        return " opened a session, but did not answer the command. If it is slow, raise its "
               "time_limit.";
    }

    const IpmiSimulator simulator{"09: 00 01\n"};
};

INSTANTIATE_TEST_SUITE_P(Protocols, LanFaults, kBothProtocols, NameOfProtocol);

TEST_P(LanFaults, GoodNetwork_Delivers) {
    const UdpRelay relay(simulator.Port(), {});
    const Connection connection = Through(relay);
    EXPECT_THAT(Send(connection, "09").log, ElementsAre(Line(4, connection, "09",
                                                             "completion code 0x00, 1 data byte, " +
                                                                 GetParam().attempts + ", N ms")));
}

TEST_P(LanFaults, EverySecondRequestLost_Delivers) {
    const UdpRelay relay(simulator.Port(), {.losesRequests = true});
    const Exchange exchange = Send(Through(relay), "09");
    EXPECT_THAT(exchange.answers, ElementsAre("length 2, code 00, data 01"))
        << testing::PrintToString(exchange.log);
}

// With IPMI 2.0 the answer that ends the log-in is among the lost ones, each time, and the
// simulator does not repeat it.
TEST_P(LanFaults, EverySecondPacketLost_DeliversWithIpmi15Only) {
    const UdpRelay relay(simulator.Port(), {.losesRequests = true, .losesAnswers = true});
    const Connection connection = Through(relay);
    if (GetParam().name == "2.0") {
        ExpectTrouble(connection, At(connection) + StoppedAnswering(), kSeveralAttempts);
    } else {
        EXPECT_THAT(Send(connection, "09").answers, ElementsAre("length 2, code 00, data 01"));
    }
}

TEST_P(LanFaults, AnswerToTheCommandAfterOneAndAHalfSeconds_Delivers) {
    const UdpRelay relay(simulator.Port(), {.lateFrom = kAnswersOfTheOpening,
                                            .delay = std::chrono::milliseconds(1500)});
    EXPECT_THAT(Send(Through(relay), "09").answers, ElementsAre("length 2, code 00, data 01"));
}

// With IPMI 1.5 the answer that the simulator numbers like the one before costs a wait of the same
// length, so that too little time is left for the command.
TEST_P(LanFaults, AnswerToTheCommandAfterThreeSeconds_DeliversWithIpmi20Only) {
    const UdpRelay relay(simulator.Port(), {.lateFrom = kAnswersOfTheOpening,
                                            .delay = std::chrono::milliseconds(3000)});
    const Connection connection = Through(relay);
    if (GetParam().name == "2.0") {
        EXPECT_THAT(Send(connection, "09").answers, ElementsAre("length 2, code 00, data 01"));
    } else {
        ExpectTrouble(connection, At(connection) + SilentToTheCommand(), kSeveralAttempts);
    }
}

TEST_P(LanFaults, EveryAnswerAfterThreeSeconds_IsNoAnswer) {
    const UdpRelay relay(simulator.Port(),
                         {.lateFrom = 0, .delay = std::chrono::milliseconds(3000)});
    const Connection connection = Through(relay);
    ExpectTrouble(connection,
                  At(connection) +
                      " did not answer within 4 s. Check the address, the port, and that IPMI over "
                      "LAN is switched on.",
                  kSeveralAttempts);
}

TEST_P(LanFaults, SilenceAfterTheFirstAnswer_IsNamed) {
    const UdpRelay relay(simulator.Port(), {.answers = 1});
    const Connection connection = Through(relay);
    ExpectTrouble(connection, At(connection) + StoppedAnswering(), kSeveralAttempts);
}

TEST_P(LanFaults, SilenceBeforeTheAnswerToTheCommand_IsNamed) {
    const UdpRelay relay(simulator.Port(), {.answers = AnswersBefore() + kAnswersOfTheOpening});
    const Connection connection = Through(relay);
    ExpectTrouble(connection, At(connection) + SilentToTheCommand(), kSeveralAttempts);
}

TEST_P(LanFaults, SilenceAfterTheAnswerToTheCommand_Delivers) {
    const UdpRelay relay(simulator.Port(), {.answers = AnswersBefore() + kAnswersOfTheOpening + 1});
    EXPECT_THAT(Send(Through(relay), "09").answers, ElementsAre("length 2, code 00, data 01"));
}

TEST_P(LanFaults, TwoProgramsAtOnce_AreBothAnswered) {
    Exchange first;
    Exchange second;
    {
        const std::string commands = "09 09 09 09 09";
        const LanProgram another;
        const std::jthread one([&] { first = program.Send(To(simulator), commands); });
        const std::jthread two([&] { second = another.Send(To(simulator), commands); });
    }
    const std::vector<std::string> expected(5, "length 2, code 00, data 01");
    EXPECT_EQ(first.answers, expected);
    EXPECT_EQ(second.answers, expected);
}

}  // namespace
