#include <cli/ExitCodes.h>
#include <cli/Installation.h>
#include <cli/Json.h>
#include <cli/Machine.h>
#include <cli/Printable.h>
#include <cli/SettingList.h>
#include <cli/Text.h>
#include <cli/commands/Commands.h>
#include <cli/report/CatalogTrouble.h>

#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace cli {

namespace {

constexpr const char* kNone = "(none)";
constexpr std::size_t kTroubleIndent = 4;

using Rows = std::vector<std::pair<std::string, std::string>>;

Json SettingsJson(const Session& session) {
    Json object = Json::object();
    for (const auto& [name, value, source] : ListSettings(session))
        object[name] = {{"value", value},
                        {"origin", source.kind},
                        {"place", source.place.empty() ? Json() : Json(source.place)}};
    return object;
}

// Shows the file of a password or key, never its content.
Json ControllerIdJson(const Controller& controller) {
    Json json = {{"way", controller.way}};
    if (controller.settings.transport != platform::TransportKind::Lan) return json;
    json["user"] = controller.settings.user;
    json["password_file"] = controller.settings.passwordFile;
    json["k_g_file"] = controller.settings.keyFile;
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

std::vector<std::string> AllTroubles(const Machine& machine, const std::filesystem::path& catalog) {
    std::vector<std::string> troubles = machine.troubles;
    if (std::string text = CatalogTrouble(catalog); !text.empty())
        troubles.push_back(std::move(text));
    return troubles;
}

Json InfoJson(const Session& session) {
    const Machine machine = ReadMachine(session.settings);
    const std::unique_ptr<host::Host> host = LoadHost(session);
    const std::filesystem::path catalog = CatalogBelow(session.settings.root.value);
    Json controllers = Json::array();
    for (const Controller& controller : machine.controllers)
        controllers.push_back(ControllerIdJson(controller));
    return {{"module", session.files.module},
            {"schema", session.files.schema},
            {"registrations", RegistrationsJson(host->Registrations())},
            {"settings", SettingsJson(session)},
            {"catalog", catalog.string()},
            {"machine_type", machine.type},
            {"bios_id", machine.biosId},
            {"controllers", std::move(controllers)},
            {"troubles", AllTroubles(machine, catalog)}};
}

// A JSON value for people: texts without quotation marks, nothing as kNone.
std::string Plain(const Json& value) {
    if (value.is_null()) return kNone;
    if (value.is_string()) {
        const auto text = value.get<std::string>();
        return text.empty() ? kNone : PrintableLine(text);
    }
    if (!value.is_array()) return value.dump();
    std::vector<std::string> items;
    for (const Json& item : value) items.push_back(Plain(item));
    return items.empty() ? kNone : Listed(items);
}

std::string OriginText(const Json& setting) {
    if (setting["origin"] == "command") return "chosen by this command";
    const std::string origin = Plain(setting["origin"]);
    return setting["place"].is_null() ? origin : origin + " " + Plain(setting["place"]);
}

std::string SettingsText(const Json& settings, std::size_t width) {
    Rows rows;
    for (const auto& [name, setting] : settings.items())
        rows.emplace_back(name, Plain(setting["value"]) + "  [" + OriginText(setting) + "]");
    return Table(rows, width);
}

std::string ControllersText(const Json& controllers, std::size_t width) {
    Rows rows;
    for (const Json& controller : controllers) {
        std::string text;
        for (const auto& [name, value] : controller.items())
            text += text.empty() ? Plain(value) : ", " + name + " " + Plain(value);
        rows.emplace_back("node " + std::to_string(rows.size()), text);
    }
    return rows.empty() ? "  none found\n" : Table(rows, width);
}

std::string RegistrationsText(const Json& registrations, std::size_t width) {
    Rows rows;
    for (const Json& one : registrations)
        rows.emplace_back(Plain(one["class"]), Plain(one["types"]));
    return Table(rows, width);
}

std::string InfoText(const Json& info, std::size_t width) {
    std::string text = Table({{"Module", Plain(info["module"])},
                              {"Schema", Plain(info["schema"])},
                              {"Catalog", Plain(info["catalog"])},
                              {"Machine type", Plain(info["machine_type"])},
                              {"BIOS identifier", Plain(info["bios_id"])}},
                             width);
    text += "\nControllers\n" + ControllersText(info["controllers"], width);
    text += "\nSettings in force\n" + SettingsText(info["settings"], width);
    text += "\nRegistrations: " + Counted(info["registrations"].size(), "class", "classes") + "\n" +
            RegistrationsText(info["registrations"], width);
    for (const Json& trouble : info["troubles"])
        text += "\n" + Wrap(Plain(trouble), width, 0, kTroubleIndent);
    return text;
}

int Info(const Session& session, bool asJson) {
    const Json info = InfoJson(session);
    std::cout << (asJson ? JsonText(info)
                         : InfoText(info, StandardOutput(session.options.colour).width));
    return kSuccess;
}

}  // namespace

void AddInfo(CommandSet& commands) {
    const auto asJson = std::make_shared<bool>(false);
    commands
        .Add("info", "Print the module, the settings in force and the controllers",
             [asJson](const Session& session) { return Info(session, *asJson); })
        .Flag("--json", *asJson, "Print one JSON object");
}

}  // namespace cli
