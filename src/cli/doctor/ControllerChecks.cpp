#include <cli/doctor/ControllerChecks.h>
#include <platform/service_processor/ControllerProbe.h>
#include <platform/settings/FileText.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace cli {

namespace {

using platform::ProbedNode;

constexpr const char* kDevices = "devices";
constexpr const char* kLoadDriver =
    "Load the kernel's IPMI driver with: modprobe -a ipmi_si ipmi_devintf";

Check CheckDevice(const std::string& path) {
    const std::string name = "device " + path;
    if (::access(path.c_str(), R_OK | W_OK) == 0)
        return Good(name, "The device " + path + " may be read and written.");
    const int reason = errno;
    return Bad(
        name,
        "The device " + path + " cannot be read and written: " + platform::ReasonText(reason) + ".",
        reason == ENOENT ? kLoadDriver : "Run the test as root, or as a user who may do both.");
}

Check CheckController(const ProbedNode& node) {
    const std::string name = "controller " + std::to_string(node.number);
    const std::string subject = "Controller " + std::to_string(node.number) + ", " + node.way + ",";
    const platform::ProbeResult result =
        platform::ProbeController(node.controller, node.number, node.limit);
    if (result.answered)
        return Good(name, subject + " answers: manufacturer " +
                              std::to_string(result.id.manufacturer) + ", product " +
                              std::to_string(result.id.product) + ", firmware " +
                              result.id.firmware + ".");
    return BadFrom(name, subject + " is not reached: " + result.trouble,
                   "Check that the controller works and that its settings are right.");
}

Check NoController(const platform::Settings& settings, const std::string& deviceFolder) {
    if (settings.controllers.value)
        return Bad(kDevices,
                   "The settings name no controller, says " + settings.controllers.place + ".",
                   "Name one there, or leave the controllers out for every IPMI device.");
    return BadFrom(kDevices, platform::NoDeviceText(deviceFolder), kLoadDriver);
}

}  // namespace

Checks CheckControllers(const platform::Settings& settings, const std::string& deviceFolder) {
    const std::vector<ProbedNode> nodes = platform::NodesToProbe(settings, deviceFolder);
    if (nodes.empty()) return {NoController(settings, deviceFolder)};
    Checks checks;
    for (const ProbedNode& node : nodes) {
        if (node.controller.transport == platform::TransportKind::InBand)
            checks.push_back(CheckDevice(node.controller.device));
    }
    for (const ProbedNode& node : nodes) checks.push_back(CheckController(node));
    return checks;
}

}  // namespace cli
