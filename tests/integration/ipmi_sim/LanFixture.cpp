#include <integration/ipmi_sim/LanFixture.h>

#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>
#include <stdexcept>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

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

// The text with "N" for the last number before `unit`.
std::string WithoutNumber(std::string text, const std::string& unit) {
    const std::size_t end = text.rfind(unit);
    if (end == std::string::npos) return text;
    const std::size_t begin = text.find_last_not_of("0123456789", end - 1) + 1;
    return text.replace(begin, end - begin, "N");
}

}  // namespace

std::ostream& operator<<(std::ostream& output, const LogLine& line) {
    return output << line.severity << ": " << line.text;
}

Exchange LanProgram::Send(const Connection& connection, const std::string& commands) const {
    const std::string log = folder.File("log");
    std::filesystem::remove(log);
    const std::string output =
        OutputOf("BMCI2C_CONFIG='" + WriteSettings(connection) + "' BMCI2C_LOG='json:" + log +
                 "' BMCI2C_LOG_LEVEL=4 '" BMCI2C_SEND_IPMI "' " + commands);
    EXPECT_THAT(output + TextOf(log), Not(HasSubstr(connection.password)));

    Exchange exchange{.answers = Lines(output), .log = {}};
    for (const std::string& line : Lines(TextOf(log))) {
        const auto entry = nlohmann::json::parse(line);
        exchange.log.push_back({entry.at("severity"), WithoutNumber(entry.at("text"), " ms")});
    }
    EXPECT_EQ(exchange.answers.back(), "sockets left open: 0");
    exchange.answers.pop_back();
    return exchange;
}

std::string LanProgram::WriteSettings(const Connection& connection) const {
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

LogLine LanFixture::Line(int severity, const Connection& connection, const std::string& command,
                         const std::string& text) {
    return {severity, "SP: node 0 (lan 127.0.0.1:" + std::to_string(connection.port) +
                          "): network function 0x3a, command 0x" + command + ": " + text};
}

std::string LanFixture::At(const Connection& connection) {
    return "The controller at 127.0.0.1:" + std::to_string(connection.port);
}

void LanFixture::ExpectTrouble(const Connection& connection, const std::string& text,
                               const std::string& attempts) {
    const Exchange exchange = Send(connection, "09");
    EXPECT_THAT(exchange.answers, ElementsAre("not delivered"));
    EXPECT_THAT(exchange.log,
                ElementsAre(Line(2, connection, "09",
                                 text + " (no completion code, " + attempts + ", N ms)")));
}

void PrintTo(const Protocol& protocol, std::ostream* output) { *output << protocol.name; }

std::string NameOfProtocol(const testing::TestParamInfo<Protocol>& protocol) {
    return protocol.param.name == "2.0" ? "Ipmi20" : "Ipmi15";
}
