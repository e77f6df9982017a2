#include <cli/ShellWord.h>
#include <cli/report/RealMachineCommand.h>

#include <filesystem>

namespace cli {

namespace {

constexpr const char* kEmptySettings = "/dev/null";

std::string Option(const char* name, const std::string& path) {
    if (path.empty()) return "";
    return " " + std::string(name) + " " + ShellWord(std::filesystem::absolute(path));
}

}  // namespace

std::string RealMachineCommand(const Session& session, bool isRoot) {
    const platform::Settings& settings = session.settings;
    // Without a profile it is the settings file that simulates.
    const bool fileSimulates = settings.profileFile.value.empty();
    const bool namesConfig = settings.configFile.origin == platform::Origin::Environment;
    const bool namesRoot = settings.root.origin == platform::Origin::Environment;
    std::string config = namesConfig ? settings.configFile.value : "";
    if (fileSimulates) config = kEmptySettings;
    return std::string(isRoot ? "" : "sudo ") +
           (session.inheritedProfile ? "env -u BMCI2C_SIMULATE " : "") +
           ShellWord(session.executable) + Option("--config", config) +
           Option("--module", session.options.module) +
           Option("--root", namesRoot ? settings.root.value : "") + " run";
}

}  // namespace cli
