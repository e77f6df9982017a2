#include <platform/service_processor/inband/DeviceList.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <filesystem>
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

std::string ReasonOf(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? "exists" : std::generic_category().message(errno);
}

}  // namespace

std::map<unsigned, std::string> Devices(const std::string& deviceFolder) {
    std::map<unsigned, std::string> devices;
    for (const std::string_view prefix : kDevicePrefixes) AddDevices(deviceFolder, prefix, devices);
    return devices;
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

}  // namespace platform
