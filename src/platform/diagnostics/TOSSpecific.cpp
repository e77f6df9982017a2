#include <platform/diagnostics/SettingsInForce.h>
#include <platform/diagnostics/SmbiosText.h>
#include <platform/diagnostics/TOSSpecific.h>
#include <platform/diagnostics/TRootObject.h>

#include <filesystem>
#include <system_error>

namespace NQUVZDX20 {

namespace {

std::string WithoutTrailing(std::string text, const char* characters) {
    text.erase(text.find_last_not_of(characters) + 1);
    return text;
}

std::string TextOf(const platform::SmbiosText& smbios) {
    if (!smbios.problem.empty())
        TRootObject::GetCoreLogger()->Log(kLogError, "DMI: " + smbios.problem);
    return smbios.text;
}

}  // namespace

std::string TOSSpecific::GetMachineTypeFromID() {
    return TextOf(platform::ReadMachineType(*platform::SettingsInForce()));
}

std::string TOSSpecific::GetBiosID() {
    return TextOf(platform::ReadBiosId(*platform::SettingsInForce()));
}

std::string TOSSpecific::SmbiosProblem() {
    const auto settings = platform::SettingsInForce();
    const std::string type = platform::ReadMachineType(*settings).problem;
    const std::string biosId = platform::ReadBiosId(*settings).problem;
    return type.empty() || biosId.empty() ? type + biosId : type + " " + biosId;
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
