#include <cli/doctor/SettingsChecks.h>
#include <platform/service_processor/TransportError.h>
#include <platform/service_processor/lan/BmcKey.h>
#include <platform/service_processor/lan/Password.h>
#include <platform/settings/DefaultPaths.h>
#include <platform/settings/FileText.h>
#include <platform/settings/LanSupport.h>
#include <platform/settings/LogTarget.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

namespace cli {

namespace {

using platform::ControllerSettings;
using platform::Settings;

// Who can write the file decides which controllers a privileged program asks.
bool IsWritableByOthers(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           (status.st_mode & (S_IWGRP | S_IWOTH)) != 0;
}

Check CheckSettingsFile(const Settings& settings) {
    constexpr const char* kName = "settings";
    const std::string& file = settings.configFile.value;
    if (file.empty())
        return Good(kName, "There is no settings file " + platform::DefaultSettingsFile() +
                               ", so the defaults hold.");
    if (IsWritableByOthers(file))
        return Bad(kName,
                   "The settings file " + file + " is writable by users other than its owner.",
                   "Run: chmod go-w " + file);
    return Good(kName, "The settings file " + file + " is right.");
}

// Why lines cannot be appended to a file, which may not exist yet; empty if they can.
std::string ReasonAgainstAppending(const std::string& path) {
    const std::filesystem::path file(path);
    const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
    std::error_code ignored;
    if (std::filesystem::is_directory(file, ignored)) return platform::ReasonText(EISDIR);
    const std::filesystem::path& target = std::filesystem::exists(file, ignored) ? file : folder;
    return ::access(target.c_str(), W_OK) == 0 ? "" : platform::ReasonText(errno);
}

void CheckLog(const Settings& settings, Checks& checks) {
    constexpr const char* kName = "log";
    const auto target = platform::ParseLogTarget(settings.log.value);
    if (!target || target->path.empty()) return;
    const std::string reason = ReasonAgainstAppending(target->path);
    checks.push_back(
        reason.empty()
            ? Good(kName, "The log " + target->path + " can be written.")
            : Bad(kName, "The log " + target->path + " cannot be written: " + reason + ".",
                  "Name another one with the key sink under [log] or with BMCI2C_LOG."));
}

// `kind` is "password" or "k_g"; `read` throws when the file cannot be used.
template <class Read>
void CheckSecretFile(const std::string& kind, int controller, const std::string& file, Read read,
                     Checks& checks) {
    if (file.empty()) return;
    const std::string name = SecretFileCheck(kind, controller);
    try {
        read();
        checks.push_back(
            Good(name, "The " + kind + " file " + file + " can be read, by its owner only."));
    } catch (const platform::TransportError& error) {
        checks.push_back(Bad(name, error.AsTrouble().text, error.AsTrouble().advice));
    }
}

void CheckSecretFiles(const Settings& settings, Checks& checks) {
    if (!settings.controllers.value) return;
    int number = 0;
    for (const ControllerSettings& one : *settings.controllers.value) {
        CheckSecretFile(
            "password", number, one.passwordFile,
            [&] { platform::Password(one.passwordFile, platform::LongestPassword(one.protocol)); },
            checks);
        CheckSecretFile(
            "k_g", number, one.keyFile, [&] { platform::lan::ReadBmcKey(one.keyFile); }, checks);
        ++number;
    }
}

}  // namespace

std::string SecretFileCheck(const std::string& kind, int controller) {
    return kind + " file of controller " + std::to_string(controller);
}

Checks CheckSettings(const Settings& settings) {
    if (!settings.problem.empty())
        return {Bad("settings", settings.problem, settings.problemAdvice)};
    Checks checks = {CheckSettingsFile(settings)};
    if (const std::string& profile = settings.profileFile.value; !profile.empty())
        checks.push_back(
            Good("profile", "The profile " + profile + " is right; its machine is simulated."));
    CheckLog(settings, checks);
    CheckSecretFiles(settings, checks);
    return checks;
}

}  // namespace cli
