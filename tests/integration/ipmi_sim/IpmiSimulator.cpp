#include <fcntl.h>
#include <integration/ipmi_sim/IpmiSimulator.h>
#include <integration/ipmi_sim/LoopbackSocket.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <random>
#include <sstream>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// Another process may take a free port before the simulator does.
constexpr int kStarts = 5;
constexpr milliseconds kLongestStart{20000};
constexpr milliseconds kLongestStop{5000};
constexpr milliseconds kPause{20};

constexpr int kNoSuchProgram = 127;

// RMCP, no session: Get Channel Authentication Capabilities, which any controller answers.
constexpr std::array<unsigned char, 23> kAreYouThere = {
    0x06, 0x00, 0xFF, 0x07, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x09, 0x20, 0x18, 0xC8, 0x81, 0x8C, 0x38, 0x8E, 0x04, 0x29};

// True when something comes back within a pause.
bool IsAnswered(const LoopbackSocket& client, std::uint16_t port) {
    client.Send(port, kAreYouThere);
    pollfd waiting{.fd = client.Descriptor(), .events = POLLIN, .revents = 0};
    return poll(&waiting, 1, static_cast<int>(kPause.count())) > 0 &&
           (waiting.revents & POLLIN) != 0;
}

std::string RandomPassword() {
    std::random_device random;
    std::ostringstream text;
    text << "pw" << std::hex << random();
    return text.str();
}

// Runs in the child: becomes the simulator, which dies with the test.
[[noreturn]] void BecomeSimulator(const TemporaryFolder& folder) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int output =
        open(folder.File("output").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    execlp("ipmi_sim", "ipmi_sim", "-n", "-c", folder.File("lan.conf").c_str(), "-f",
           folder.File("commands").c_str(), "-s", folder.Path().c_str(), nullptr);
    _exit(kNoSuchProgram);
}

// True when the process ended within the time; `status` as of waitpid.
bool EndsWithin(pid_t process, milliseconds time, int& status) {
    const auto end = Clock::now() + time;
    while (waitpid(process, &status, WNOHANG) == 0) {
        if (Clock::now() >= end) return false;
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

}  // namespace

IpmiSimulator::IpmiSimulator(const std::string& script) : password(RandomPassword()) {
    folder.Write("script", script);
    for (int start = 0; start < kStarts; ++start) {
        Start();
        if (ComesUp()) return;
    }
    throw std::runtime_error("ipmi_sim does not come up:\n" + Output());
}

IpmiSimulator::~IpmiSimulator() { Stop(); }

std::uint16_t IpmiSimulator::FreePort() { return LoopbackSocket().BindAnyPort(); }

void IpmiSimulator::WriteConfiguration() const {
    folder.Write("lan.conf",
                 "name \"bmci2c\"\n"
                 "set_working_mc 0x20\n"
                 "startlan 1\n"
                 "  addr 127.0.0.1 " +
                     std::to_string(port) +
                     "\n"
                     "  priv_limit admin\n"
                     "  allowed_auths_callback md5\n"
                     "  allowed_auths_user md5\n"
                     "  allowed_auths_operator md5\n"
                     "  allowed_auths_admin md5\n"
                     "  guid 8a7b6c5d4e3f201100112233445566aa\n"
                     "endlan\n"
                     "user 2 true \"" +
                     kUser + "\" \"" + password +
                     "\" admin 10 md5\n"
                     "loadlib \"" BMCI2C_OEM_MODULE "\" \"" +
                     folder.File("script") + "\"\n");
    folder.Write("commands",
                 "mc_setbmc 0x20\n"
                 "mc_add 0x20 0 no-device-sdrs 0x01 1 0 0x00 0 0\n"
                 "mc_enable 0x20\n");
}

void IpmiSimulator::Start() {
    port = FreePort();
    WriteConfiguration();
    process = fork();
    if (process < 0) throw std::system_error(errno, std::generic_category(), "fork");
    if (process == 0) BecomeSimulator(folder);
}

bool IpmiSimulator::ComesUp() {
    const LoopbackSocket client;
    const auto end = Clock::now() + kLongestStart;
    while (Clock::now() < end) {
        int status = 0;
        if (waitpid(process, &status, WNOHANG) != 0) {
            process = -1;
            if (WIFEXITED(status) && WEXITSTATUS(status) == kNoSuchProgram) {
                throw std::runtime_error(
                    "There is no program ipmi_sim; install the package openipmi.");
            }
            return false;
        }
        if (IsAnswered(client, port)) return true;
    }
    Stop();
    return false;
}

void IpmiSimulator::Stop() {
    if (process < 0) return;
    int status = 0;
    kill(process, SIGTERM);
    if (!EndsWithin(process, kLongestStop, status)) {
        kill(process, SIGKILL);
        waitpid(process, &status, 0);
    }
    process = -1;
}

std::string IpmiSimulator::Output() const {
    std::ifstream file(folder.File("output"));
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}
