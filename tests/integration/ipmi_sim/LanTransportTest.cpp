// The LAN transport, from the library object down, against a real controller simulator.
#include <integration/ipmi_sim/LanFixture.h>

namespace {

using testing::ElementsAre;

INSTANTIATE_TEST_SUITE_P(Protocols, EachProtocol, kBothProtocols, NameOfProtocol);

TEST_P(EachProtocol, AllBussesWork_DeliversZeros) {
    const IpmiSimulator simulator("09: 00 00 00 00\n");
    const Connection connection = To(simulator);

    const Exchange exchange = Send(connection, "09");

    EXPECT_THAT(exchange.answers, ElementsAre("length 4, code 00, data 00 00 00"));
    EXPECT_THAT(exchange.log,
                ElementsAre(Line(4, connection, "09",
                                 "completion code 0x00, 3 data bytes, 1 attempt, N ms")));
}

TEST_P(EachProtocol, OneBusFailed_DeliversItsBit) {
    const IpmiSimulator simulator("09: 00 00 80\n");
    EXPECT_THAT(Send(To(simulator), "09").answers, ElementsAre("length 3, code 00, data 00 80"));
}

TEST_P(EachProtocol, GenerationQuery_DeliversTheSecondByte) {
    const IpmiSimulator simulator("c1: 00 00 01\n");
    EXPECT_THAT(Send(To(simulator), "c1").answers, ElementsAre("length 3, code 00, data 00 01"));
}

TEST_P(EachProtocol, CompletionCodeOnly_DeliversLengthOne) {
    const IpmiSimulator simulator("09: 00\n");
    EXPECT_THAT(Send(To(simulator), "09").answers, ElementsAre("length 1, code 00, data"));
}

TEST_P(EachProtocol, UnknownCommand_DeliversC1WithLengthTwo) {
    const IpmiSimulator simulator("c1: 00 00 00\n");
    const Connection connection = To(simulator);

    const Exchange exchange = Send(connection, "09");

    EXPECT_THAT(exchange.answers, ElementsAre("length 2, code c1, data 00"));
    EXPECT_THAT(exchange.log,
                ElementsAre(Line(2, connection, "09",
                                 "completion code 0xc1 (the controller does not know the "
                                 "command), 0 data bytes, 1 attempt, N ms")));
}

TEST_P(EachProtocol, BusyOnce_DeliversFFAndThenTheData) {
    const IpmiSimulator simulator("09: ff\n09: 00 01\n");
    const Connection connection = To(simulator);

    const Exchange exchange = Send(connection, "09 09");

    EXPECT_THAT(exchange.answers,
                ElementsAre("length 2, code ff, data 00", "length 2, code 00, data 01"));
    EXPECT_EQ(exchange.log.at(0),
              Line(2, connection, "09",
                   "completion code 0xff (the controller is busy), 0 data bytes, 1 attempt, N ms"));
}

TEST_P(EachProtocol, SilentToTheCommand_IsNotDelivered) {
    const IpmiSimulator simulator("09: silent\n");
    Connection connection = To(simulator);
    ExpectTrouble(connection,
                  At(connection) +
                      " opened a session, but did not answer the command. If it is slow, raise its "
                      "time_limit.",
                  kTwoAttempts);
}

TEST_P(EachProtocol, SilentOnce_IsAskedAgainInTheSameSession) {
    const IpmiSimulator simulator("09: silent\n09: 00 01\n");
    EXPECT_THAT(Send(To(simulator), "09").answers, ElementsAre("length 2, code 00, data 01"));
}

TEST_P(EachProtocol, UnknownUser_IsNamed) {
    const IpmiSimulator simulator("09: 00 00\n");
    Connection connection = To(simulator);
    connection.user = "nobody";
    ExpectTrouble(connection,
                  At(connection) + " does not know the user 'nobody': " +
                      (GetParam().name == "2.0" ? "status 0x0d (unauthorized user name)"
                                                : "completion code 0x81 (invalid user name)") +
                      ". Correct the setting user.",
                  kOneAttempt);
}

TEST_P(EachProtocol, NobodyListens_IsNotDelivered) {
    Connection connection = With({.port = IpmiSimulator::FreePort(), .password = "pw-of-nobody"});
    connection.timeLimit = 1;
    ExpectTrouble(connection,
                  At(connection) +
                      " cannot be reached: Connection refused. Check the address, the port, the "
                      "network, and that IPMI over LAN is switched on.",
                  kOneAttempt);
}

using LanTransport = LanFixture;

TEST_F(LanTransport, WrongPasswordOfIpmi20_IsNamed) {
    const IpmiSimulator simulator("09: 00 00\n");
    Connection connection = To(simulator);
    connection.password = "wrong-password";
    ExpectTrouble(
        connection,
        At(connection) + " has another password for the user 'tester'. Correct the password file.",
        kOneAttempt);
}

// IPMI 1.5 has no answer to a wrong password.
TEST_F(LanTransport, WrongPasswordOfIpmi15_IsSuspected) {
    const IpmiSimulator simulator("09: 00 00\n");
    Connection connection = To(simulator);
    connection.protocol = "1.5";
    connection.password = "wrong-password";
    ExpectTrouble(connection,
                  At(connection) +
                      " did not answer the login of the user 'tester'; the password is probably "
                      "wrong. Correct the password file.",
                  kTwoAttempts);
}

TEST_F(LanTransport, PasswordFileThatOthersMayRead_IsRefused) {
    const IpmiSimulator simulator("09: 00 00\n");
    Connection connection = To(simulator);
    connection.passwordMode = 0644;
    const std::string file = program.PasswordFile();
    ExpectTrouble(connection,
                  "The password file " + file +
                      " may be read by others than its owner (mode "
                      "0644). Run: chmod 600 " +
                      file,
                  kOneAttempt);
}

TEST_F(LanTransport, WorkaroundOfTheSettings_SparesTheFirstAttempt) {
    const IpmiSimulator simulator("09: 00 00\n");
    Connection connection = To(simulator);
    connection.further = "workarounds = [\"opensesspriv\"]\n";

    EXPECT_THAT(Send(connection, "09").log,
                ElementsAre(Line(4, connection, "09",
                                 "completion code 0x00, 1 data byte, 1 attempt, N ms")));
}

// The simulator keeps OEM commands for administrators.
TEST_F(LanTransport, PrivilegeLevelOfTheSettings_IsTheSessionsLevel) {
    const IpmiSimulator simulator("09: 00 00\n");
    Connection connection = To(simulator);

    connection.further = "privilege_level = \"operator\"\n";
    EXPECT_THAT(Send(connection, "09").answers, ElementsAre("length 2, code d4, data 00"));

    connection.further = "privilege_level = \"administrator\"\n";
    EXPECT_THAT(Send(connection, "09").answers, ElementsAre("length 2, code 00, data 00"));
}

class CipherSuite : public LanFixture, public testing::WithParamInterface<int> {};

TEST_P(CipherSuite, OfferedByTheController_Works) {
    const IpmiSimulator simulator("09: 00 01\n");
    Connection connection = To(simulator);
    connection.further = "cipher_suite = " + std::to_string(GetParam()) + "\n";
    EXPECT_THAT(Send(connection, "09").answers, ElementsAre("length 2, code 00, data 01"));
}

INSTANTIATE_TEST_SUITE_P(Suites, CipherSuite, testing::Values(1, 2, 3, 6, 11));

// FreeIPMI and the simulator derive different keys from the login of this suite; the simulator
// takes what it cannot read for nothing.
TEST_F(LanTransport, CipherSuite12OfTheSimulator_OpensNoSession) {
    const IpmiSimulator simulator("09: 00 01\n");
    Connection connection = To(simulator);
    connection.further = "cipher_suite = 12\n";
    ExpectTrouble(connection,
                  At(connection) +
                      " stopped answering while a session was opened. Try again; if that does not "
                      "help, set another cipher_suite, or restart the controller.",
                  kTwoAttempts);
}

TEST_F(LanTransport, CipherSuiteThatIsNotOffered_IsNamed) {
    const IpmiSimulator simulator("09: 00 01\n");
    Connection connection = To(simulator);
    connection.further = "cipher_suite = 17\n";
    ExpectTrouble(connection,
                  At(connection) +
                      " opened no session by cipher suite 17: status 0x04 (invalid "
                      "authentication algorithm). Try another cipher_suite.",
                  kOneAttempt);
}

}  // namespace
