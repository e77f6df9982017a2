// Exchanges with controller 0 as the module makes them: by the library, in a process of their own,
// which reads its settings once.
#pragma once

#include <gmock/gmock.h>
#include <integration/ipmi_sim/IpmiSimulator.h>
#include <sys/stat.h>

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

struct LogLine {
    int severity;
    std::string text;

    bool operator==(const LogLine&) const = default;
};

std::ostream& operator<<(std::ostream& output, const LogLine& line);

constexpr char kOneAttempt[] = "1 attempt";
constexpr char kTwoAttempts[] = "2 attempts";

// What one process that sends commands prints and logs.
struct Exchange {
    std::vector<std::string> answers;  // a line for each command
    std::vector<LogLine> log;          // the library's lines, with "N ms" for the time
};

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

// A program that sends, with settings of its own.
class LanProgram {
public:
    // Sends the commands ("09 09"). No output and no log line may hold the password.
    Exchange Send(const Connection& connection, const std::string& commands) const;

    std::string PasswordFile() const { return folder.File("password"); }

private:
    std::string WriteSettings(const Connection& connection) const;

    TemporaryFolder folder;
};

class LanFixture : public testing::Test {
protected:
    static Connection To(const IpmiSimulator& simulator) {
        return {.port = simulator.Port(), .password = simulator.Password()};
    }

    Exchange Send(const Connection& connection, const std::string& commands) const {
        return program.Send(connection, commands);
    }

    // What the log says of an OEM command.
    static LogLine Line(int severity, const Connection& connection, const std::string& command,
                        const std::string& text);

    // "The controller at 127.0.0.1:623"
    static std::string At(const Connection& connection);

    // Command 0x09 is not delivered, and this is all that the log says.
    void ExpectTrouble(const Connection& connection, const std::string& text,
                       const std::string& attempts);

    const LanProgram program;
};

struct Protocol {
    std::string name;
    int answersOfTheOpening;  // the controller's, when nothing is lost; the next is to the command
};

void PrintTo(const Protocol& protocol, std::ostream* output);

// The tests that hold for IPMI 2.0 and for IPMI 1.5.
class EachProtocol : public LanFixture, public testing::WithParamInterface<Protocol> {
protected:
    static Connection To(const IpmiSimulator& simulator) { return With(LanFixture::To(simulator)); }

    static Connection With(Connection connection) {
        connection.protocol = GetParam().name;
        return connection;
    }
};

inline const auto kBothProtocols = testing::Values(Protocol{"2.0", 5}, Protocol{"1.5", 4});

std::string NameOfProtocol(const testing::TestParamInfo<Protocol>& protocol);
