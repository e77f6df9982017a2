#include <cli/Text.h>
#include <cli/doctor/ControllerChecks.h>
#include <cli/doctor/SettingsChecks.h>
#include <platform/service_processor/ControllerProbe.h>
#include <platform/service_processor/TransportError.h>
#include <platform/settings/FileText.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <vector>

namespace cli {

namespace {

using platform::ProbedNode;

constexpr const char* kDevices = "devices";

std::string DeviceCheck(const ProbedNode& node) { return "device " + node.controller.device; }

// What to do about a device that does not exist.
std::string AdviceForMissing(const std::string& deviceFolder) {
    const std::vector<ProbedNode> others = platform::NodesToProbe({}, deviceFolder);
    if (others.empty())
        return "Load the kernel's IPMI driver with: modprobe -a ipmi_si ipmi_devintf";
    std::vector<std::string> paths;
    for (const ProbedNode& other : others) paths.push_back(other.controller.device);
    return "Correct the key device; this machine has " + Listed(paths) + ".";
}

Check CheckDevice(const ProbedNode& node, const std::string& deviceFolder) {
    const std::string& path = node.controller.device;
    if (::access(path.c_str(), R_OK | W_OK) == 0)
        return Good(DeviceCheck(node), "The device " + path + " may be read and written.");
    const int reason = errno;
    return Bad(
        DeviceCheck(node),
        "The device " + path + " cannot be read and written: " + platform::ReasonText(reason) + ".",
        reason == ENOENT ? AdviceForMissing(deviceFolder)
                         : "Run the test as root, or as a user who may do both.");
}

// The earlier check that explains why the controller cannot be asked; empty if there is none.
std::string CheckBefore(const ProbedNode& node, const std::string& code) {
    using enum platform::TroubleCode;
    if (code == NameOf(PasswordFile)) return SecretFileCheck("password", node.number);
    if (code == NameOf(KeyFile)) return SecretFileCheck("k_g", node.number);
    const bool isUnopened =
        code == NameOf(Permission) || code == NameOf(NoDevice) || code == NameOf(Gone);
    return isUnopened && ::access(node.controller.device.c_str(), R_OK | W_OK) != 0
               ? DeviceCheck(node)
               : "";
}

// Whether the trouble came from the controller itself.
bool HasAnswered(const std::string& code) {
    using enum platform::TroubleCode;
    constexpr std::array kAnswers = {Busy,
                                     Refused,
                                     NoSession,
                                     RefusedUser,
                                     RefusedPassword,
                                     RefusedPrivilege,
                                     RefusedAuthentication,
                                     RefusedLogin,
                                     UnusableAnswers};
    return std::ranges::any_of(kAnswers, [&](auto answer) { return code == NameOf(answer); });
}

std::string GeneralAdvice(const ProbedNode& node) {
    return node.controller.transport == platform::TransportKind::Simulated
               ? "Change its profile if it is to answer."
               : "Check that the controller works and that its settings are right.";
}

Check CheckController(const ProbedNode& node) {
    const std::string name = "controller " + std::to_string(node.number);
    const std::string subject = "Controller " + std::to_string(node.number) + ", " + node.way + ",";
    const platform::ProbeResult result =
        platform::ProbeController(node.controller, node.number, node.limit);
    if (result.id)
        return Good(name, subject + " answers: manufacturer " +
                              std::to_string(result.id->manufacturer) + ", product " +
                              std::to_string(result.id->product) + ", firmware " +
                              result.id->firmware + ".");
    const platform::Trouble& trouble = result.trouble;
    if (const std::string before = CheckBefore(node, trouble.code); !before.empty())
        return NotExamined(name, subject + " was not asked.", before);
    const char* const state = HasAnswered(trouble.code) ? " answers, but does not identify itself: "
                                                        : " is not reached: ";
    return Bad(name, subject + state + trouble.text,
               trouble.advice.empty() ? GeneralAdvice(node) : trouble.advice);
}

}  // namespace

Checks CheckControllers(const platform::Settings& settings, const std::string& deviceFolder) {
    const std::vector<ProbedNode> nodes = platform::NodesToProbe(settings, deviceFolder);
    if (nodes.empty())
        return {BadFrom(kDevices, platform::NoControllerTrouble(settings, deviceFolder), "")};
    Checks checks;
    for (const ProbedNode& node : nodes) {
        if (node.controller.transport == platform::TransportKind::InBand)
            checks.push_back(CheckDevice(node, deviceFolder));
    }
    for (const ProbedNode& node : nodes) checks.push_back(CheckController(node));
    return checks;
}

}  // namespace cli
