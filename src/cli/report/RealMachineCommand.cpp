#include <cli/report/RealMachineCommand.h>

#include <filesystem>

namespace cli {

namespace {

constexpr const char* kEmptySettings = "/dev/null";

// A word of a shell command line.
std::string Quoted(const std::string& word) {
    if (!word.empty() && word.find_first_not_of("abcdefghijklmnopqrstuvwxyz"
                                                "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                                "0123456789/._-+=:,@%") == std::string::npos)
        return word;
    std::string quoted = "'";
    for (const char letter : word) quoted += letter == '\'' ? R"('\'')" : std::string(1, letter);
    return quoted + "'";
}

std::string Option(const char* name, const std::string& path) {
    if (path.empty()) return "";
    return " " + std::string(name) + " " + Quoted(std::filesystem::absolute(path));
}

}  // namespace

std::string RealMachineCommand(const Session& session, bool isRoot) {
    const platform::Settings& settings = session.settings;
    // Without a profile it is the settings file that simulates.
    const bool fileSimulates = settings.profileFile.value.empty();
    const bool namesConfig = settings.configFile.origin == platform::Origin::Environment;
    const bool namesRoot =
        settings.root.origin == platform::Origin::Environment && !session.choseRoot;
    std::string config = namesConfig ? settings.configFile.value : "";
    if (fileSimulates) config = kEmptySettings;
    return std::string(isRoot ? "" : "sudo ") +
           (session.inheritedProfile ? "env -u BMCI2C_SIMULATE " : "") +
           Quoted(session.executable) + Option("--config", config) +
           Option("--module", session.options.module) +
           Option("--root", namesRoot ? settings.root.value : "") + " run";
}

}  // namespace cli
