#include <platform/settings/ControllerTable.h>
#include <platform/settings/DefaultPaths.h>
#include <platform/settings/Environment.h>
#include <platform/settings/Override.h>
#include <platform/settings/Settings.h>
#include <platform/settings/SettingsError.h>
#include <platform/settings/SettingsFile.h>

#include <utility>

namespace platform {

namespace {

Settings DefaultSettings() {
    Settings settings;
    settings.root.value = DefaultRoots().front();
    return settings;
}

void ApplyProfile(const Variables& chosen, Settings& settings) {
    const std::optional<std::string> path = VariableText(chosen, "BMCI2C_SIMULATE");
    if (!path) return;
    const SimulatedProfile profile = ReadSimulatedProfile(*path);
    settings.profileFile = {*path, Origin::Environment, "BMCI2C_SIMULATE"};
    const auto apply = [&](const char* key, const auto& value, auto& setting) {
        const auto place = profile.places.find(key);
        Override(setting, value, Origin::Profile,
                 place == profile.places.end() ? *path : place->second);
    };
    apply("machine_type", profile.machineType, settings.machineType);
    apply("bios_id", profile.biosId, settings.biosId);
    apply("oxc", profile.oxc, settings.oxc);
    apply("oem_build", profile.oemBuild, settings.oemBuild);
    std::vector<ControllerSettings> controllers;
    while (controllers.size() < profile.nodes.size())
        controllers.push_back(SimulatedController(profile, controllers.size()));
    apply("node", std::optional(std::move(controllers)), settings.controllers);
}

}  // namespace

Settings ReadSettings(const Variables& chosen) {
    Settings settings = DefaultSettings();
    ApplySettingsFile(chosen, settings);
    ApplyProfile(chosen, settings);
    ApplyEnvironment(chosen, settings);
    return settings;
}

Settings ReadSettingsOrProblem(const Variables& chosen) {
    try {
        return ReadSettings(chosen);
    } catch (const SettingsError& error) {
        Settings settings = DefaultSettings();
        ApplyValidEnvironment(chosen, settings);
        settings.controllers.value.emplace();
        settings.problem = error.what();
        settings.problemAdvice = error.Advice();
        return settings;
    }
}

}  // namespace platform
