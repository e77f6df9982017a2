// What `bmci2c doctor` sends to a controller.
#include <gmock/gmock.h>
#include <integration/ipmi_sim/IpmiSimulator.h>

#include <cstdio>
#include <stdexcept>
#include <string>

namespace {

using testing::HasSubstr;
using testing::Not;

std::string OutputOf(const std::string& commandLine) {
    FILE* pipe = popen((commandLine + " 2>&1").c_str(), "r");
    if (pipe == nullptr) throw std::runtime_error("cannot start " + commandLine);
    std::string output;
    for (int byte = std::fgetc(pipe); byte != EOF; byte = std::fgetc(pipe))
        output += static_cast<char>(byte);
    pclose(pipe);
    return output;
}

class DoctorOfAController : public testing::Test {
protected:
    std::string WriteSettings(const std::string& password) const {
        folder.Write("password", password + "\n");
        return folder.Write("platform.toml",
                            "[machine]\ntype = \"7000\"\nbios_id = \"B\"\n"
                            "[[controller]]\ntransport = \"lan\"\nhost = \"127.0.0.1\"\nport = " +
                                std::to_string(simulator.Port()) + "\nuser = \"" +
                                IpmiSimulator::kUser + "\"\npassword_file = \"password\"\n");
    }

    // The first status request ever finds another answer than all others.
    const IpmiSimulator simulator{"09: 00 11\n09: 00 22\n"};
    const TemporaryFolder folder;
};

TEST_F(DoctorOfAController, Controller_IsReachedAndNeverSentTheTestsCommand) {
    const std::string settings = WriteSettings(simulator.Password());
    const std::string said = OutputOf(BMCI2C_BIN " --config " + settings + " doctor --json");
    EXPECT_THAT(said, HasSubstr("\"verdict\": \"ok\""));
    EXPECT_THAT(said, HasSubstr("Controller 0, lan 127.0.0.1:" + std::to_string(simulator.Port()) +
                                ", answers: manufacturer "));
    EXPECT_THAT(said, Not(HasSubstr(simulator.Password())));
    EXPECT_THAT(OutputOf("BMCI2C_CONFIG=" + settings + " " BMCI2C_SEND_IPMI " 09"),
                HasSubstr("data 11\n"));
}

TEST_F(DoctorOfAController, WrongPassword_IsToldButNotShown) {
    const std::string said =
        OutputOf(BMCI2C_BIN " --config " + WriteSettings("sesame") + " doctor --json");
    EXPECT_THAT(said, HasSubstr(" answers, but does not identify itself: "));
    EXPECT_THAT(said, HasSubstr("password"));
    EXPECT_THAT(said, Not(HasSubstr("sesame")));
}

}  // namespace
