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

    static int AnswersOfTheOpening() { return GetParam().answersOfTheOpening; }

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
    EXPECT_THAT(Send(connection, "09").log,
                ElementsAre(Line(4, connection, "09",
                                 "completion code 0x00, 1 data byte, 1 attempt, N ms")));
}

TEST_P(LanFaults, EverySecondRequestLost_Delivers) {
    const UdpRelay relay(simulator.Port(), {.losesRequests = true});
    const Exchange exchange = Send(Through(relay), "09");
    EXPECT_THAT(exchange.answers, ElementsAre("length 2, code 00, data 01"))
        << testing::PrintToString(exchange.log);
}

// The answer that ends the login is among the lost ones, each time, and the simulator does not
// repeat it.
TEST_P(LanFaults, EverySecondPacketLost_IsNamed) {
    const UdpRelay relay(simulator.Port(), {.losesRequests = true, .losesAnswers = true});
    const Connection connection = Through(relay);
    ExpectTrouble(connection, At(connection) + StoppedAnswering(), kTwoAttempts);
}

TEST_P(LanFaults, AnswerToTheCommandAfterOneAndAHalfSeconds_Delivers) {
    const UdpRelay relay(simulator.Port(), {.lateFrom = AnswersOfTheOpening(),
                                            .delay = std::chrono::milliseconds(1500)});
    EXPECT_THAT(Send(Through(relay), "09").answers, ElementsAre("length 2, code 00, data 01"));
}

TEST_P(LanFaults, AnswerToTheCommandAfterThreeSeconds_Delivers) {
    const UdpRelay relay(simulator.Port(), {.lateFrom = AnswersOfTheOpening(),
                                            .delay = std::chrono::milliseconds(3000)});
    EXPECT_THAT(Send(Through(relay), "09").answers, ElementsAre("length 2, code 00, data 01"));
}

TEST_P(LanFaults, EveryAnswerAfterASecondAndAHalf_Delivers) {
    const UdpRelay relay(simulator.Port(),
                         {.lateFrom = 0, .delay = std::chrono::milliseconds(1500)});
    const Connection connection = Through(relay);
    EXPECT_THAT(Send(connection, "09").log,
                ElementsAre(Line(4, connection, "09",
                                 "completion code 0x00, 1 data byte, 1 attempt, N ms")));
}

TEST_P(LanFaults, EveryAnswerAfterThreeSeconds_Delivers) {
    const UdpRelay relay(simulator.Port(),
                         {.lateFrom = 0, .delay = std::chrono::milliseconds(3000)});
    const Connection connection = Through(relay);
    EXPECT_THAT(Send(connection, "09").log,
                ElementsAre(Line(4, connection, "09",
                                 "completion code 0x00, 1 data byte, 1 attempt, N ms")));
}

TEST_P(LanFaults, SilenceAfterTheFirstAnswer_IsNamed) {
    const UdpRelay relay(simulator.Port(), {.answers = 1});
    const Connection connection = Through(relay);
    ExpectTrouble(connection, At(connection) + StoppedAnswering(), kTwoAttempts);
}

TEST_P(LanFaults, SilenceBeforeTheAnswerToTheCommand_IsNamed) {
    const UdpRelay relay(simulator.Port(), {.answers = AnswersOfTheOpening()});
    const Connection connection = Through(relay);
    ExpectTrouble(connection, At(connection) + SilentToTheCommand(), kTwoAttempts);
}

TEST_P(LanFaults, SilenceAfterTheAnswerToTheCommand_Delivers) {
    const UdpRelay relay(simulator.Port(), {.answers = AnswersOfTheOpening() + 1});
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
