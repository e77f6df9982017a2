#include <platform/settings/ControllerTable.h>
#include <platform/settings/DefaultPaths.h>
#include <platform/settings/Environment.h>
#include <platform/settings/LogTarget.h>
#include <platform/settings/Override.h>
#include <platform/settings/OxcTable.h>
#include <platform/settings/SettingsFile.h>
#include <platform/settings/TomlTable.h>

#include <filesystem>
#include <system_error>
#include <utility>

namespace platform {

namespace {

using Folder = std::filesystem::path;

std::optional<std::string> PathIn(const Folder& folder, const std::optional<std::string>& path) {
    return path ? std::optional<std::string>(folder / *path) : std::nullopt;
}

void ReadMachine(TomlTable& table, const Folder& folder, Settings& settings) {
    Override(settings.machineType, table.Text("type"), Origin::File);
    Override(settings.biosId, table.Text("bios_id"), Origin::File);
    Override(settings.smbiosDir, PathIn(folder, table.NonEmptyText("smbios_dir")), Origin::File);
}

void ReadDiagnostics(TomlTable& table, const Folder& folder, Settings& settings) {
    Override(settings.root, PathIn(folder, table.NonEmptyText("root")), Origin::File);
    Override(settings.oemBuild, table.Boolean("oem_build"), Origin::File);
}

void ReadControllers(TomlTable& table, const Folder& /*folder*/, Settings& settings) {
    Override(settings.oxc, ReadOxcFamily(table), Origin::File);
    Override(settings.timeLimit, ReadTimeLimit(table), Origin::File);
}

void ReadLog(TomlTable& table, const Folder& folder, Settings& settings) {
    if (const std::optional<std::string> sink = table.Text("sink")) {
        std::optional<LogTarget> target = ParseLogTarget(*sink);
        if (!target) table.Reject("sink", '"' + *sink + '"', kLogTargetForms);
        if (!target->path.empty()) target->path = folder / target->path;
        settings.log = {LogTargetText(*target), Origin::File};
    }
    Override(settings.logLevel, table.Integer("level", kLowestLogLevel, kHighestLogLevel),
             Origin::File);
}

void ReadControllerList(TomlTable& file, const Folder& folder, Settings& settings) {
    std::optional<std::vector<TomlTable>> tables = file.Tables("controller");
    if (!tables) return;
    std::vector<ControllerSettings> controllers;
    for (TomlTable& table : *tables)
        controllers.push_back(ReadController(table, controllers.size(), folder));
    settings.controllers = {std::move(controllers), Origin::File};
}

using ReadSection = void (*)(TomlTable&, const Folder&, Settings&);

constexpr std::pair<const char*, ReadSection> kSections[] = {
    {"machine", ReadMachine},
    {"diagnostics", ReadDiagnostics},
    {"controllers", ReadControllers},
    {"log", ReadLog},
};

void ReadSettingsFile(const std::string& path, Settings& settings) {
    TomlTable file = TomlTable::Read(path);
    const Folder folder = Folder(path).parent_path();
    for (const auto& [name, read] : kSections) {
        std::optional<TomlTable> table = file.Table(name);
        if (!table) continue;
        read(*table, folder, settings);
        table->RejectOtherKeys();
    }
    ReadControllerList(file, folder, settings);
    file.RejectOtherKeys();
}

bool IsAbsent(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::status(path, ignored).type() == std::filesystem::file_type::not_found;
}

}  // namespace

void ApplySettingsFile(Settings& settings) {
    const std::optional<std::string> named = EnvironmentText("BMCI2C_CONFIG");
    const std::string path = named.value_or(DefaultSettingsFile());
    if (!named && IsAbsent(path)) return;
    ReadSettingsFile(path, settings);
    settings.configFile = {path, named ? Origin::Environment : Origin::Default};
}

}  // namespace platform
