#include <platform/settings/ControllerTable.h>
#include <platform/settings/DefaultPaths.h>
#include <platform/settings/Environment.h>
#include <platform/settings/Keys.h>
#include <platform/settings/LogTarget.h>
#include <platform/settings/OxcTable.h>
#include <platform/settings/SettingsFile.h>
#include <platform/settings/SmbiosTable.h>
#include <platform/settings/TomlSetting.h>

#include <filesystem>
#include <system_error>
#include <utility>

namespace platform {

namespace {

void ReadMachine(TomlTable& table, const std::filesystem::path& folder, Settings& settings) {
    Apply(table, keys::kType, settings.machineType, &TomlTable::Text);
    Apply(table, keys::kBiosId, settings.biosId, &TomlTable::Text);
    ReadSmbiosSource(table, keys::kTypeSource, folder, settings.machineTypeSource);
    ReadSmbiosSource(table, keys::kBiosIdSource, folder, settings.biosIdSource);
}

void ReadDiagnostics(TomlTable& table, const std::filesystem::path& folder, Settings& settings) {
    Apply(table, keys::kRoot, settings.root, ReadPath, folder);
    Apply(table, keys::kOemBuild, settings.oemBuild, &TomlTable::Boolean);
}

void ReadControllers(TomlTable& table, const std::filesystem::path& /*folder*/,
                     Settings& settings) {
    Apply(table, keys::kOxc, settings.oxc, ReadOxcFamily);
    Apply(table, keys::kTimeLimit, settings.timeLimit, ReadTimeLimit);
}

void ReadCim(TomlTable& table, const std::filesystem::path& /*folder*/, Settings& settings) {
    Apply(table, keys::kDeriveAssociations, settings.deriveAssociations, &TomlTable::Boolean);
}

std::optional<std::string> ReadSink(TomlTable& table, std::string_view key,
                                    const std::filesystem::path& folder) {
    const std::optional<std::string> sink = table.Text(key);
    if (!sink) return std::nullopt;
    std::optional<LogTarget> target = ParseLogTarget(*sink);
    if (!target) table.Reject(key, '"' + *sink + '"', kLogTargetForms);
    if (!target->path.empty()) target->path = folder / target->path;
    return LogTargetText(*target);
}

void ReadLog(TomlTable& table, const std::filesystem::path& folder, Settings& settings) {
    Apply(table, keys::kSink, settings.log, ReadSink, folder);
    Apply(table, keys::kLevel, settings.logLevel, &TomlTable::Integer<int>, kLowestLogLevel,
          kHighestLogLevel);
}

std::optional<std::vector<ControllerSettings>> ReadControllerList(
    TomlTable& file, std::string_view key, const std::filesystem::path& folder) {
    std::optional<std::vector<TomlTable>> tables = file.Tables(key);
    if (!tables) return std::nullopt;
    std::vector<ControllerSettings> controllers;
    for (TomlTable& table : *tables)
        controllers.push_back(ReadController(table, controllers.size(), folder));
    return controllers;
}

using ReadSection = void (*)(TomlTable&, const std::filesystem::path&, Settings&);

constexpr std::pair<const char*, ReadSection> kSections[] = {
    {keys::kMachine, ReadMachine},
    {keys::kDiagnostics, ReadDiagnostics},
    {keys::kControllers, ReadControllers},
    {keys::kCim, ReadCim},
    {keys::kLog, ReadLog},
};

void ReadSettingsFile(const std::string& path, Settings& settings) {
    TomlTable file = TomlTable::Read(path);
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    for (const auto& [name, read] : kSections) {
        std::optional<TomlTable> table = file.Table(name);
        if (!table) continue;
        read(*table, folder, settings);
        table->RejectOtherKeys();
    }
    Apply(file, keys::kController, settings.controllers, ReadControllerList, folder);
    file.RejectOtherKeys();
}

bool IsAbsent(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::status(path, ignored).type() == std::filesystem::file_type::not_found;
}

}  // namespace

void ApplySettingsFile(const Variables& chosen, Settings& settings) {
    const std::optional<std::string> named = VariableText(chosen, "BMCI2C_CONFIG");
    const std::string path = named.value_or(DefaultSettingsFile());
    if (!named && IsAbsent(path)) return;
    ReadSettingsFile(path, settings);
    settings.configFile = {path, named ? Origin::Environment : Origin::Default,
                           named ? "BMCI2C_CONFIG" : ""};
}

}  // namespace platform
