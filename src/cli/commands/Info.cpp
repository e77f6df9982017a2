#include <cli/ExitCodes.h>
#include <cli/Json.h>
#include <cli/LogCapture.h>
#include <cli/Machine.h>
#include <cli/Text.h>
#include <cli/commands/Commands.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace cli {

namespace {

using platform::Origin;
using Rows = std::vector<std::pair<std::string, std::string>>;

std::string OriginText(Origin origin) {
    switch (origin) {
        case Origin::File:
            return "file";
        case Origin::Environment:
            return "environment";
        case Origin::Profile:
            return "profile";
        default:
            return "default";
    }
}

template <class T>
Json SettingJson(const platform::Setting<T>& setting, bool choseItself = false) {
    return {{"value", setting.value},
            {"origin", choseItself ? "command" : OriginText(setting.origin)}};
}

Json SettingJson(const platform::Setting<std::optional<std::string>>& setting) {
    return {{"value", setting.value ? Json(*setting.value) : Json()},
            {"origin", OriginText(setting.origin)}};
}

Json OxcJson(const platform::OxcFamily& oxc) {
    if (const bool* const all = std::get_if<bool>(&oxc)) return *all;
    Json products = Json::array();
    for (const auto& [manufacturer, product] :
         std::get<std::vector<platform::ControllerProduct>>(oxc))
        products.push_back({{"manufacturer", manufacturer}, {"product", product}});
    return products;
}

// Every setting in force under its name in the settings file; null where nothing is set.
Json SettingsJson(const Session& session) {
    const platform::Settings& settings = session.settings;
    return {{"config_file", SettingJson(settings.configFile)},
            {"profile", SettingJson(settings.profileFile)},
            {"machine.type", SettingJson(settings.machineType)},
            {"machine.bios_id", SettingJson(settings.biosId)},
            {"machine.smbios_dir", SettingJson(settings.smbiosDir)},
            {"diagnostics.root", SettingJson(settings.root, session.choseRoot)},
            {"diagnostics.oem_build", SettingJson(settings.oemBuild)},
            {"controllers.oxc",
             {{"value", OxcJson(settings.oxc.value)}, {"origin", OriginText(settings.oxc.origin)}}},
            {"controllers.time_limit", SettingJson(settings.timeLimit)},
            {"controller",
             {{"value", settings.controllers.value ? Json(settings.controllers.value->size())
                                                   : Json("every IPMI device")},
              {"origin", OriginText(settings.controllers.origin)}}},
            {"log.sink", SettingJson(settings.log, session.choseLog)},
            {"log.level", SettingJson(settings.logLevel, session.choseLogLevel)}};
}

// A password stands in its file only, which is named.
Json ControllerJson(const Controller& controller) {
    Json json = {{"way", controller.way}};
    if (controller.settings.transport != platform::TransportKind::Lan) return json;
    json["user"] = controller.settings.user;
    json["password_file"] = controller.settings.passwordFile;
    json["protocol"] = controller.settings.protocol;
    json["cipher_suite"] = controller.settings.cipherSuite;
    json["privilege_level"] = controller.settings.privilegeLevel;
    json["workarounds"] = controller.settings.workarounds;
    return json;
}

Json RegistrationsJson(const std::vector<host::Registration>& registrations) {
    Json array = Json::array();
    for (const host::Registration& one : registrations)
        array.push_back(
            {{"class", one.className}, {"provider", one.provider}, {"types", one.types}});
    return array;
}

Json InfoJson(const Session& session) {
    const LogCapture capture;
    const Machine machine = ReadMachine(session.settings);
    const std::unique_ptr<host::Host> host = LoadHost(session);
    Json controllers = Json::array();
    for (const Controller& controller : machine.controllers)
        controllers.push_back(ControllerJson(controller));
    return {{"module", session.files.module},
            {"schema", session.files.schema},
            {"registrations", RegistrationsJson(host->Registrations())},
            {"settings", SettingsJson(session)},
            {"machine_type", machine.type},
            {"bios_id", machine.biosId},
            {"controllers", std::move(controllers)},
            {"troubles", Troubles(capture.Lines())}};
}

// A JSON value for people: texts without quotation marks, nothing as "(none)".
std::string Plain(const Json& value) {
    if (value.is_null() || value == "") return "(none)";
    if (value.is_string()) return value.get<std::string>();
    if (!value.is_array()) return value.dump();
    std::vector<std::string> items;
    for (const Json& item : value) items.push_back(Plain(item));
    return items.empty() ? "(none)" : Listed(items);
}

std::string SettingsText(const Json& settings) {
    Rows rows;
    for (const auto& [name, setting] : settings.items())
        rows.emplace_back(name, Plain(setting["value"]) + "  [" + Plain(setting["origin"]) + "]");
    return Table(rows);
}

std::string ControllersText(const Json& controllers) {
    Rows rows;
    for (const Json& controller : controllers) {
        std::string text;
        for (const auto& [name, value] : controller.items())
            text += text.empty() ? Plain(value) : ", " + name + " " + Plain(value);
        rows.emplace_back("node " + std::to_string(rows.size()), text);
    }
    return rows.empty() ? "  none found\n" : Table(rows);
}

std::string RegistrationsText(const Json& registrations) {
    Rows rows;
    for (const Json& one : registrations)
        rows.emplace_back(Plain(one["class"]), Plain(one["types"]));
    return Table(rows);
}

std::string InfoText(const Json& info) {
    std::string text = Table({{"Module", Plain(info["module"])},
                              {"Schema", Plain(info["schema"])},
                              {"Machine type", Plain(info["machine_type"])},
                              {"BIOS identifier", Plain(info["bios_id"])}});
    text += "\nControllers\n" + ControllersText(info["controllers"]);
    text += "\nSettings in force\n" + SettingsText(info["settings"]);
    text += "\nRegistrations: " + Counted(info["registrations"].size(), "class", "classes") + "\n" +
            RegistrationsText(info["registrations"]);
    for (const Json& trouble : info["troubles"]) text += "\n" + Plain(trouble) + "\n";
    return text;
}

int Info(const Session& session, bool asJson) {
    const Json info = InfoJson(session);
    std::cout << (asJson ? JsonText(info) : InfoText(info));
    return kSuccess;
}

}  // namespace

void AddInfo(CLI::App& app, Command& chosen) {
    CLI::App* const command =
        app.add_subcommand("info", "Print the module, the settings in force and the controllers");
    const auto asJson = std::make_shared<bool>(false);
    command->add_flag("--json", *asJson, "Print one JSON object");
    command->callback([&chosen, asJson] {
        chosen = [asJson](const Session& session) { return Info(session, *asJson); };
    });
}

}  // namespace cli
