#include <platform/settings/ControllerTable.h>
#include <platform/settings/DefaultPaths.h>
#include <platform/settings/Environment.h>
#include <platform/settings/Override.h>
#include <platform/settings/Settings.h>
#include <platform/settings/SettingsFile.h>

#include <utility>

namespace platform {

namespace {

Settings DefaultSettings() {
    Settings settings;
    settings.root.value = DefaultRoot();
    return settings;
}

void ApplyProfile(Settings& settings) {
    const std::optional<std::string> path = EnvironmentText("BMCI2C_SIMULATE");
    if (!path) return;
    const SimulatedProfile profile = ReadSimulatedProfile(*path);
    settings.profileFile = {*path, Origin::Environment};
    Override(settings.machineType, profile.machineType, Origin::Profile);
    Override(settings.biosId, profile.biosId, Origin::Profile);
    Override(settings.oxc, profile.oxc, Origin::Profile);
    Override(settings.oemBuild, profile.oemBuild, Origin::Profile);
    std::vector<ControllerSettings> controllers;
    while (controllers.size() < profile.nodes.size())
        controllers.push_back(SimulatedController(profile, controllers.size()));
    settings.controllers = {std::move(controllers), Origin::Profile};
}

}  // namespace

Settings ReadSettings() {
    Settings settings = DefaultSettings();
    ApplySettingsFile(settings);
    ApplyProfile(settings);
    ApplyEnvironment(settings);
    return settings;
}

Settings SettingsInTrouble(const std::string& problem) {
    Settings settings = DefaultSettings();
    ApplyValidEnvironment(settings);
    settings.controllers.value.emplace();
    settings.problem = problem;
    return settings;
}

}  // namespace platform
