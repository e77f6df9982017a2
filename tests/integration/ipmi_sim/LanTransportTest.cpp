// The LAN transport, from the library object down, against a real controller simulator.
#include <gmock/gmock.h>
#include <integration/ipmi_sim/IpmiSimulator.h>
#include <sys/stat.h>

#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

struct LogLine {
    int severity;
    std::string text;
};

bool operator==(const LogLine& left, const LogLine& right) {
    return left.severity == right.severity && left.text == right.text;
}

std::ostream& operator<<(std::ostream& output, const LogLine& line) {
    return output << line.severity << ": " << line.text;
}

// What one process that sends commands prints and logs.
struct Exchange {
    std::vector<std::string> answers;  // a line for each command
    std::vector<LogLine> log;          // the library's lines, with "N ms" for the time
};

std::vector<std::string> Lines(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::string TextOf(const std::string& file) {
    std::ifstream stream(file);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

std::string OutputOf(const std::string& commandLine) {
    FILE* pipe = popen(commandLine.c_str(), "r");
    if (pipe == nullptr) throw std::runtime_error("cannot start " + commandLine);
    std::string output;
    for (int byte = std::fgetc(pipe); byte != EOF; byte = std::fgetc(pipe)) {
        output += static_cast<char>(byte);
    }
    if (pclose(pipe) != 0) throw std::runtime_error("failed: " + commandLine + "\n" + output);
    return output;
}

std::string WithoutTime(std::string text) {
    const std::size_t end = text.rfind(" ms");
    if (end == std::string::npos) return text;
    const std::size_t begin = text.find_last_not_of("0123456789", end - 1) + 1;
    return text.replace(begin, end - begin, "N");
}

// How the controller is reached; a test changes what it is about.
struct Connection {
    std::uint16_t port = 0;
    std::string user = IpmiSimulator::kUser;
    std::string password;
    std::string protocol = "2.0";
    std::string further = "";  // more keys of the controller
    mode_t passwordMode = 0600;
    int timeLimit = 4;
};

class LanTransportTest : public testing::Test {
protected:
    static Connection To(const IpmiSimulator& simulator) {
        return {.port = simulator.Port(), .password = simulator.Password()};
    }

    // Sends the commands ("09 09") in a process of its own.
    Exchange Send(const Connection& connection, const std::string& commands) {
        const std::string log = folder.File("log");
        const std::string output =
            OutputOf("BMCI2C_CONFIG='" + WriteSettings(connection) + "' BMCI2C_LOG='json:" + log +
                     "' BMCI2C_LOG_LEVEL=4 '" BMCI2C_SEND_IPMI "' " + commands);
        EXPECT_THAT(output + TextOf(log), Not(HasSubstr(connection.password)));

        Exchange exchange{.answers = Lines(output), .log = {}};
        for (const std::string& line : Lines(TextOf(log))) {
            const auto entry = nlohmann::json::parse(line);
            exchange.log.push_back({entry.at("severity"), WithoutTime(entry.at("text"))});
        }
        EXPECT_EQ(exchange.answers.back(), "sockets left open: 0");
        exchange.answers.pop_back();
        return exchange;
    }

    std::string WriteSettings(const Connection& connection) {
        const std::string password = folder.Write("password", connection.password + "\n");
        EXPECT_EQ(chmod(password.c_str(), connection.passwordMode), 0);
        return folder.Write("platform.toml",
                            "[controllers]\n"
                            "time_limit = " +
                                std::to_string(connection.timeLimit) +
                                "\n"
                                "[[controller]]\n"
                                "transport = \"lan\"\n"
                                "host = \"127.0.0.1\"\n"
                                "port = " +
                                std::to_string(connection.port) +
                                "\n"
                                "user = \"" +
                                connection.user +
                                "\"\n"
                                "password_file = \"" +
                                password +
                                "\"\n"
                                "protocol = \"" +
                                connection.protocol + "\"\n" + connection.further);
    }

    static LogLine Line(int severity, const Connection& connection, const std::string& command,
                        const std::string& text) {
        return {severity, "SP: node 0 (lan 127.0.0.1:" + std::to_string(connection.port) +
                              "): network function 0x3a, command 0x" + command + ": " + text};
    }

    static std::string At(const Connection& connection) {
        return "The controller at 127.0.0.1:" + std::to_string(connection.port);
    }

    // Command 0x09 is not delivered, and this is all that the log says.
    void ExpectTrouble(const Connection& connection, const std::string& text,
                       const std::string& attempts) {
        const Exchange exchange = Send(connection, "09");
        EXPECT_THAT(exchange.answers, ElementsAre("not delivered"));
        EXPECT_THAT(exchange.log,
                    ElementsAre(Line(2, connection, "09",
                                     text + " (no completion code, " + attempts + ", N ms)")));
    }

    TemporaryFolder folder;
};

struct Protocol {
    std::string name;
    std::string attempts;  // until the simulator, which names no privilege level, lets one in
};

void PrintTo(const Protocol& protocol, std::ostream* output) { *output << protocol.name; }

class EachProtocol : public LanTransportTest, public testing::WithParamInterface<Protocol> {
protected:
    static Connection To(const IpmiSimulator& simulator) {
        Connection connection = LanTransportTest::To(simulator);
        connection.protocol = GetParam().name;
        return connection;
    }
};

INSTANTIATE_TEST_SUITE_P(Protocols, EachProtocol,
                         testing::Values(Protocol{"2.0", "2 attempts"},
                                         Protocol{"1.5", "1 attempt"}),
                         [](const auto& protocol) {
                             return protocol.param.name == "2.0" ? "Ipmi20" : "Ipmi15";
                         });

TEST_P(EachProtocol, AllBussesWork_DeliversZeros) {
    const IpmiSimulator simulator("09: 00 00 00 00\n");
    const Connection connection = To(simulator);

    const Exchange exchange = Send(connection, "09");

    EXPECT_THAT(exchange.answers, ElementsAre("length 4, code 00, data 00 00 00"));
    EXPECT_THAT(exchange.log, ElementsAre(Line(4, connection, "09",
                                               "completion code 0x00, 3 data bytes, " +
                                                   GetParam().attempts + ", N ms")));
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
                                 "command), 0 data bytes, " +
                                     GetParam().attempts + ", N ms")));
}

TEST_P(EachProtocol, BusyOnce_DeliversFFAndThenTheData) {
    const IpmiSimulator simulator("09: ff\n09: 00 01\n");
    const Connection connection = To(simulator);

    const Exchange exchange = Send(connection, "09 09");

    EXPECT_THAT(exchange.answers,
                ElementsAre("length 2, code ff, data 00", "length 2, code 00, data 01"));
    EXPECT_EQ(exchange.log.at(0),
              Line(2, connection, "09",
                   "completion code 0xff (the controller is busy), 0 data bytes, " +
                       GetParam().attempts + ", N ms"));
}

TEST_P(EachProtocol, SilentToTheCommand_IsNotDelivered) {
    const IpmiSimulator simulator("09: silent\n");
    Connection connection = To(simulator);
    ExpectTrouble(connection,
                  At(connection) + " opened a session, but did not answer the command within 4 s.",
                  GetParam().attempts);
}

TEST_P(EachProtocol, SilentOnce_IsAskedAgainInTheSameSession) {
    const IpmiSimulator simulator("09: silent\n09: 00 01\n");
    EXPECT_THAT(Send(To(simulator), "09").answers, ElementsAre("length 2, code 00, data 01"));
}

TEST_P(EachProtocol, UnknownUser_IsNamed) {
    const IpmiSimulator simulator("09: 00 00\n");
    Connection connection = To(simulator);
    connection.user = "nobody";
    ExpectTrouble(connection, At(connection) + " does not know the user 'nobody'.",
                  GetParam().attempts);
}

TEST_P(EachProtocol, NobodyListens_IsNotDelivered) {
    Connection connection{.port = IpmiSimulator::FreePort(), .password = "pw-of-nobody"};
    connection.protocol = GetParam().name;
    connection.timeLimit = 1;
    ExpectTrouble(connection,
                  At(connection) +
                      " did not answer within 1 s. Check the address, the port, and "
                      "that IPMI over LAN is switched on.",
                  "1 attempt");
}

TEST_F(LanTransportTest, WrongPasswordOfIpmi20_IsNamed) {
    const IpmiSimulator simulator("09: 00 00\n");
    Connection connection = To(simulator);
    connection.password = "wrong-password";
    ExpectTrouble(connection, At(connection) + " has another password for the user 'tester'.",
                  "2 attempts");
}

// IPMI 1.5 has no answer to a wrong password.
TEST_F(LanTransportTest, WrongPasswordOfIpmi15_IsSuspected) {
    const IpmiSimulator simulator("09: 00 00\n");
    Connection connection = To(simulator);
    connection.protocol = "1.5";
    connection.password = "wrong-password";
    ExpectTrouble(connection,
                  At(connection) +
                      " did not answer the log-in of the user 'tester' within 4 s; "
                      "the password is probably wrong.",
                  "1 attempt");
}

TEST_F(LanTransportTest, PasswordFileThatOthersMayRead_IsRefused) {
    const IpmiSimulator simulator("09: 00 00\n");
    Connection connection = To(simulator);
    connection.passwordMode = 0644;
    const std::string file = folder.File("password");
    ExpectTrouble(connection,
                  "The password file " + file +
                      " may be read by others than its owner (mode "
                      "0644). Take that away with: chmod 600 " +
                      file,
                  "1 attempt");
}

TEST_F(LanTransportTest, WorkaroundOfTheSettings_SparesTheFirstAttempt) {
    const IpmiSimulator simulator("09: 00 00\n");
    Connection connection = To(simulator);
    connection.further = "workarounds = [\"opensesspriv\"]\n";

    EXPECT_THAT(Send(connection, "09").log,
                ElementsAre(Line(4, connection, "09",
                                 "completion code 0x00, 1 data byte, 1 attempt, N ms")));
}

// The simulator keeps OEM commands for administrators.
TEST_F(LanTransportTest, PrivilegeLevelOfTheSettings_IsTheSessionsLevel) {
    const IpmiSimulator simulator("09: 00 00\n");
    Connection connection = To(simulator);

    connection.further = "privilege_level = \"operator\"\n";
    EXPECT_THAT(Send(connection, "09").answers, ElementsAre("length 2, code d4, data 00"));

    connection.further = "privilege_level = \"administrator\"\n";
    EXPECT_THAT(Send(connection, "09").answers, ElementsAre("length 2, code 00, data 00"));
}

class CipherSuite : public LanTransportTest, public testing::WithParamInterface<int> {};

TEST_P(CipherSuite, OfferedByTheController_Works) {
    const IpmiSimulator simulator("09: 00 01\n");
    Connection connection = To(simulator);
    connection.further = "cipher_suite = " + std::to_string(GetParam()) + "\n";
    EXPECT_THAT(Send(connection, "09").answers, ElementsAre("length 2, code 00, data 01"));
}

INSTANTIATE_TEST_SUITE_P(Suites, CipherSuite, testing::Values(1, 2, 3, 6, 11));

TEST_F(LanTransportTest, CipherSuiteThatIsNotOffered_IsNamed) {
    const IpmiSimulator simulator("09: 00 01\n");
    Connection connection = To(simulator);
    connection.further = "cipher_suite = 17\n";
    ExpectTrouble(connection,
                  At(connection) +
                      " opened no session by cipher suite 17: internal IPMI error. "
                      "Try another cipher_suite.",
                  "1 attempt");
}

}  // namespace
