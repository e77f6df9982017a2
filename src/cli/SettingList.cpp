#include <cli/SettingList.h>

#include <optional>
#include <utility>
#include <variant>

namespace cli {

namespace {

using platform::ControllerSettings;
using platform::Origin;
using platform::Setting;
using platform::Settings;

Json SettingValueJson(const platform::OxcFamily& oxc) {
    if (const bool* const all = std::get_if<bool>(&oxc)) return *all;
    Json products = Json::array();
    for (const auto& [manufacturer, product] :
         std::get<std::vector<platform::ControllerProduct>>(oxc))
        products.push_back({{"manufacturer", manufacturer}, {"product", product}});
    return products;
}

Json SettingValueJson(const std::optional<std::string>& text) {
    return text ? Json(*text) : Json();
}

Json SettingValueJson(const std::optional<std::vector<ControllerSettings>>& controllers) {
    return controllers ? Json(controllers->size()) : Json("every IPMI device");
}

template <class Plain>
Json SettingValueJson(const Plain& plain) {
    return plain;
}

// A key of a [[controller]].
struct ControllerKey {
    const char* name;
    Json (*value)(const ControllerSettings&);
};

constexpr ControllerKey kInBandKeys[] = {
    {"device", [](const ControllerSettings& one) { return Json(one.device); }},
};
constexpr ControllerKey kLanKeys[] = {
    {"host", [](const ControllerSettings& one) { return Json(one.host); }},
    {"port", [](const ControllerSettings& one) { return Json(one.port); }},
    {"user", [](const ControllerSettings& one) { return Json(one.user); }},
    {"password_file", [](const ControllerSettings& one) { return Json(one.passwordFile); }},
    {"k_g_file", [](const ControllerSettings& one) { return Json(one.keyFile); }},
    {"protocol", [](const ControllerSettings& one) { return Json(one.protocol); }},
    {"cipher_suite", [](const ControllerSettings& one) { return Json(one.cipherSuite); }},
    {"privilege_level", [](const ControllerSettings& one) { return Json(one.privilegeLevel); }},
    {"workarounds", [](const ControllerSettings& one) { return Json(one.workarounds); }},
};
constexpr ControllerKey kSimulatedKeys[] = {
    {"profile", [](const ControllerSettings& one) { return Json(one.profile); }},
};

// The option of the command that sets a variable instead of whoever called it.
std::string OptionOf(const GlobalOptions& options, const std::string& variable) {
    if (variable == "BMCI2C_CONFIG" && !options.config.empty()) return "--config";
    if (variable == "BMCI2C_ROOT" && !options.root.empty()) return "--root";
    if (variable == "BMCI2C_SIMULATE" && !options.profile.empty()) return "--simulate";
    return "";
}

class Collector {
public:
    explicit Collector(const Session& openSession) : session(openSession) {}

    template <class T>
    void Add(const std::string& name, const Setting<T>& setting, bool choseItself = false) {
        settings.push_back({name, SettingValueJson(setting.value),
                            choseItself ? Source{"command", ""} : SourceOf(setting)});
    }

    void Add(const std::string& name, const platform::SmbiosSource& source) {
        Add(name + ".folder", source.folder);
        Add(name + ".file", source.file);
        Add(name + ".pattern", source.pattern);
        Add(name + ".replacement", source.replacement);
    }

    void Add(const std::string& name, const ControllerSettings& controller) {
        switch (controller.transport) {
            case platform::TransportKind::InBand:
                AddKeys(name, controller, "inband", kInBandKeys);
                AddTimeLimit(name, controller);
                break;
            case platform::TransportKind::Lan:
                AddKeys(name, controller, "lan", kLanKeys);
                AddTimeLimit(name, controller);
                break;
            case platform::TransportKind::Simulated:
                AddKeys(name, controller, "simulated", kSimulatedKeys);
                break;
        }
    }

    std::vector<ListedSetting> Take() { return std::move(settings); }

private:
    template <class T>
    Source SourceOf(const Setting<T>& setting) const {
        switch (setting.origin) {
            case Origin::File:
                return {"file", setting.place};
            case Origin::Profile:
                return {"profile", setting.place};
            case Origin::Environment: {
                const std::string option = OptionOf(session.options, setting.place);
                return option.empty() ? Source{"environment", setting.place}
                                      : Source{"command line", option};
            }
            default:
                return {"default", ""};
        }
    }

    void AddKey(const std::string& name, const ControllerSettings& controller, const char* key,
                Json value, const Source& otherwise) {
        const auto place = controller.places.find(key);
        settings.push_back(
            {name + "." + key, std::move(value),
             place == controller.places.end() ? otherwise : Source{"file", place->second}});
    }

    template <class Keys>
    void AddKeys(const std::string& name, const ControllerSettings& controller,
                 const char* transport, const Keys& keys) {
        const Source byDefault{"default", ""};
        AddKey(name, controller, "transport", transport, byDefault);
        for (const ControllerKey& key : keys)
            AddKey(name, controller, key.name, key.value(controller), byDefault);
    }

    void AddTimeLimit(const std::string& name, const ControllerSettings& controller) {
        const Setting<int>& ofAll = session.settings.timeLimit;
        AddKey(name, controller, "time_limit", controller.timeLimit.value_or(ofAll.value),
               SourceOf(ofAll));
    }

    const Session& session;
    std::vector<ListedSetting> settings;
};

}  // namespace

std::vector<ListedSetting> ListSettings(const Session& session) {
    const Settings& settings = session.settings;
    Collector all(session);
    all.Add("config_file", settings.configFile);
    all.Add("profile", settings.profileFile);
    all.Add("machine.type", settings.machineType);
    all.Add("machine.bios_id", settings.biosId);
    all.Add("machine.type_source", settings.machineTypeSource);
    all.Add("machine.bios_id_source", settings.biosIdSource);
    all.Add("diagnostics.root", settings.root);
    all.Add("diagnostics.oem_build", settings.oemBuild);
    all.Add("controllers.oxc", settings.oxc);
    all.Add("controllers.time_limit", settings.timeLimit);
    all.Add("cim.derive_associations", settings.deriveAssociations);
    all.Add("log.sink", settings.log, session.choseLog);
    all.Add("log.level", settings.logLevel, session.choseLogLevel);
    all.Add("controller", settings.controllers);
    if (settings.controllers.origin == Origin::File) {
        std::size_t position = 0;
        for (const ControllerSettings& controller : *settings.controllers.value)
            all.Add("controller[" + std::to_string(position++) + "]", controller);
    }
    return all.Take();
}

}  // namespace cli
