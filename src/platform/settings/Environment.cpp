#include <platform/settings/Environment.h>
#include <platform/settings/LogTarget.h>
#include <platform/settings/Override.h>
#include <platform/settings/SettingsError.h>

#include <charconv>
#include <cstdlib>

namespace platform {

namespace {

template <class T>
void ApplyText(const char* variable, Setting<T>& setting) {
    Override(setting, EnvironmentText(variable), Origin::Environment, variable);
}

void ApplyRoot(Settings& settings) { ApplyText("BMCI2C_ROOT", settings.root); }

void ApplyLog(Settings& settings) {
    const auto log = EnvironmentText("BMCI2C_LOG");
    if (log && !ParseLogTarget(*log))
        throw SettingsError("BMCI2C_LOG", '"' + *log + '"', kLogTargetForms);
    Override(settings.log, log, Origin::Environment, "BMCI2C_LOG");
}

void ApplyLogLevel(Settings& settings) {
    const auto text = EnvironmentText("BMCI2C_LOG_LEVEL");
    if (!text) return;
    int level = 0;
    const char* const end = text->data() + text->size();
    const auto [rest, error] = std::from_chars(text->data(), end, level);
    if (error != std::errc() || rest != end || level < kLowestLogLevel || level > kHighestLogLevel)
        throw SettingsError("BMCI2C_LOG_LEVEL", '"' + *text + '"',
                            "is an integer from " + std::to_string(kLowestLogLevel) + " to " +
                                std::to_string(kHighestLogLevel));
    settings.logLevel = {level, Origin::Environment, "BMCI2C_LOG_LEVEL"};
}

void ApplyLogCapture(Settings& settings) { ApplyText("BMCI2C_LOG_CAPTURE", settings.logCapture); }

constexpr auto kApplications = {ApplyRoot, ApplyLog, ApplyLogLevel, ApplyLogCapture};

}  // namespace

std::optional<std::string> EnvironmentText(const char* variable) {
    const char* const text = std::getenv(variable);
    if (text == nullptr || *text == '\0') return std::nullopt;
    return text;
}

void ApplyEnvironment(Settings& settings) {
    for (const auto apply : kApplications) apply(settings);
}

void ApplyValidEnvironment(Settings& settings) {
    for (const auto apply : kApplications) {
        try {
            apply(settings);
        } catch (const SettingsError&) {
            // The default stands; the caller reports a problem already.
        }
    }
}

}  // namespace platform
