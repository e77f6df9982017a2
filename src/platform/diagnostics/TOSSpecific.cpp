#include <platform/diagnostics/SettingsInForce.h>
#include <platform/diagnostics/TOSSpecific.h>
#include <platform/diagnostics/TRootObject.h>
#include <platform/settings/FileText.h>

#include <filesystem>
#include <optional>
#include <system_error>

namespace NQUVZDX20 {

namespace {

std::string WithoutTrailing(std::string text, const char* characters) {
    text.erase(text.find_last_not_of(characters) + 1);
    return text;
}

// One of the kernel's SMBIOS texts; `key` is the setting that replaces it.
std::string ReadSmbios(const std::string& folder, const std::string& name, const std::string& key) {
    const std::string path = folder + "/" + name;
    try {
        return WithoutTrailing(platform::ReadFileText(path), " \t\r\n\v\f");
    } catch (const std::system_error& error) {
        TRootObject::GetCoreLogger()->Log(
            kLogError,
            "DMI: " + path + " cannot be read: " + platform::ReasonText(error.code().value()) +
                ". The key " + key + " under [machine] in the settings file can stand in for it.");
        return "";
    }
}

}  // namespace

std::string TOSSpecific::GetMachineTypeFromID() {
    const auto settings = platform::SettingsInForce();
    if (const auto& type = settings->machineType.value) return *type;
    return ReadSmbios(settings->smbiosDir.value, "product_name", "type");
}

std::string TOSSpecific::GetBiosID() {
    const auto settings = platform::SettingsInForce();
    if (const auto& biosId = settings->biosId.value) return *biosId;
    return ReadSmbios(settings->smbiosDir.value, "bios_version", "bios_id");
}

std::string TOSSpecific::GetZDXRootPath() {
    return WithoutTrailing(platform::SettingsInForce()->root.value, "/");
}

unsigned long TOSSpecific::GetFileSize(std::string path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return 0;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return error ? 0 : static_cast<unsigned long>(size);
}

bool TOSSpecific::isOEMBuild() { return platform::SettingsInForce()->oemBuild.value; }

}  // namespace NQUVZDX20
