#include <platform/settings/Environment.h>
#include <platform/settings/LogTarget.h>
#include <platform/settings/Override.h>
#include <platform/settings/SettingsError.h>

#include <charconv>
#include <cstdlib>

namespace platform {

namespace {

void ApplyRoot(const Variables& chosen, Settings& settings) {
    Override(settings.root, VariableText(chosen, "BMCI2C_ROOT"), Origin::Environment,
             "BMCI2C_ROOT");
}

void ApplyLog(const Variables& chosen, Settings& settings) {
    const auto log = VariableText(chosen, "BMCI2C_LOG");
    if (log && !ParseLogTarget(*log))
        throw SettingsError("BMCI2C_LOG", '"' + *log + '"', kLogTargetForms);
    Override(settings.log, log, Origin::Environment, "BMCI2C_LOG");
}

void ApplyLogLevel(const Variables& chosen, Settings& settings) {
    const auto text = VariableText(chosen, "BMCI2C_LOG_LEVEL");
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

constexpr auto kApplications = {ApplyRoot, ApplyLog, ApplyLogLevel};

}  // namespace

std::optional<std::string> EnvironmentText(const char* variable) {
    const char* const text = std::getenv(variable);
    if (text == nullptr || *text == '\0') return std::nullopt;
    return text;
}

std::optional<std::string> VariableText(const Variables& chosen, const char* variable) {
    const auto found = chosen.find(variable);
    if (found == chosen.end() || found->second.empty()) return EnvironmentText(variable);
    return found->second;
}

void ApplyEnvironment(const Variables& chosen, Settings& settings) {
    for (const auto apply : kApplications) apply(chosen, settings);
}

void ApplyValidEnvironment(const Variables& chosen, Settings& settings) {
    for (const auto apply : kApplications) {
        try {
            apply(chosen, settings);
        } catch (const SettingsError&) {
            // The default stands; the caller reports a problem already.
        }
    }
}

}  // namespace platform
