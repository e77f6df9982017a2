#include <platform/service_processor/NodeList.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <map>
#include <optional>
#include <string_view>
#include <system_error>

namespace platform {

namespace {

// A device's path below the device folder, without its number. The kernel and udev have used all
// three; where a number stands in several places, the first is taken.
constexpr std::array<std::string_view, 3> kDevicePrefixes = {"ipmi", "ipmi/", "ipmidev/"};

std::optional<unsigned> NumberBehind(std::string_view prefix, std::string_view name) {
    if (!name.starts_with(prefix)) return std::nullopt;
    name.remove_prefix(prefix.size());
    unsigned number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    if (error != std::errc() || end != name.data() + name.size()) return std::nullopt;
    return number;
}

void AddDevices(const std::string& deviceFolder, std::string_view prefix,
                std::map<unsigned, std::string>& devices) {
    const std::filesystem::path pattern = deviceFolder + "/" + std::string(prefix);
    const std::string namePrefix = pattern.filename();
    std::error_code missing;
    std::filesystem::directory_iterator entry(pattern.parent_path(), missing);
    for (; !missing && entry != std::filesystem::directory_iterator(); entry.increment(missing)) {
        if (const auto number = NumberBehind(namePrefix, entry->path().filename().native())) {
            devices.try_emplace(*number, entry->path());
        }
    }
}

std::map<unsigned, std::string> Devices(const std::string& deviceFolder) {
    std::map<unsigned, std::string> devices;
    for (const std::string_view prefix : kDevicePrefixes) AddDevices(deviceFolder, prefix, devices);
    return devices;
}

std::string ReasonOf(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? "exists" : std::generic_category().message(errno);
}

std::string MissingDevices(const std::string& deviceFolder) {
    std::string text = "There is no IPMI device:";
    for (const std::string_view prefix : kDevicePrefixes) {
        const std::string path = deviceFolder + "/" + std::string(prefix) + "0";
        text += " " + path + ": " + ReasonOf(path) + ";";
    }
    text.back() = '.';
    return text;
}

}  // namespace

std::vector<ControllerSettings> NodeList(const Settings& settings,
                                         const std::string& deviceFolder) {
    if (settings.controllers.value) return *settings.controllers.value;
    std::vector<ControllerSettings> nodes;
    for (const auto& [number, path] : Devices(deviceFolder)) {
        ControllerSettings& node = nodes.emplace_back();
        node.transport = TransportKind::InBand;
        node.device = path;
        node.isFound = true;
    }
    return nodes;
}

std::chrono::milliseconds TimeLimit(const Settings& settings,
                                    const ControllerSettings& controller) {
    return std::chrono::seconds(controller.timeLimit.value_or(settings.timeLimit.value));
}

bool IsAbsent(const ControllerSettings& controller) {
    return controller.transport == TransportKind::Simulated && !controller.simulated->present;
}

bool IsSimulated(const Settings& settings) {
    const auto& controllers = settings.controllers.value;
    return !settings.profileFile.value.empty() ||
           (controllers &&
            std::ranges::any_of(*controllers, [](const ControllerSettings& controller) {
                return controller.transport == TransportKind::Simulated;
            }));
}

Trouble NoControllerTrouble(const Settings& settings, const std::string& deviceFolder) {
    const auto& controllers = settings.controllers;
    if (!settings.problem.empty())
        return {.code = "settings",
                .text = "The settings cannot be read: " + settings.problem,
                .advice = "Fix them, then run the test again."};
    if (controllers.origin == Origin::Profile)
        return {.code = "no_controller",
                .text = "The profile " + controllers.place + " lists no controller.",
                .advice =
                    "Add a [[node]], or run the test without a profile to use this machine's "
                    "IPMI devices."};
    if (controllers.value)
        return {.code = "no_controller",
                .text = "The settings list no controller (" + controllers.place + ").",
                .advice =
                    "Add a [[controller]], or remove the key to use this machine's IPMI "
                    "devices."};
    return {.code = "no_device",
            .text = MissingDevices(deviceFolder),
            .advice =
                "Load the kernel's IPMI driver (modprobe -a ipmi_si ipmi_devintf), or list "
                "the controllers in the settings file, then run the test again."};
}

std::string NoDeviceText(const std::string& deviceFolder) {
    return MissingDevices(deviceFolder) + " Is the kernel module ipmi_devintf loaded?";
}

}  // namespace platform
