#include <cli/SettingList.h>
#include <platform/settings/Keys.h>

#include <optional>
#include <utility>
#include <variant>

namespace cli {

namespace {

namespace keys = platform::keys;

using platform::ControllerSettings;
using platform::Origin;
using platform::Setting;
using platform::Settings;

Json SettingValueJson(const platform::OxcFamily& oxc) {
    if (const bool* const all = std::get_if<bool>(&oxc)) return *all;
    Json products = Json::array();
    for (const auto& [manufacturer, product] :
         std::get<std::vector<platform::ControllerProduct>>(oxc))
        products.push_back({{keys::kManufacturer, manufacturer}, {keys::kProduct, product}});
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
    {keys::kDevice, [](const ControllerSettings& one) { return Json(one.device); }},
};
constexpr ControllerKey kLanKeys[] = {
    {keys::kHost, [](const ControllerSettings& one) { return Json(one.host); }},
    {keys::kPort, [](const ControllerSettings& one) { return Json(one.port); }},
    {keys::kUser, [](const ControllerSettings& one) { return Json(one.user); }},
    {keys::kPasswordFile, [](const ControllerSettings& one) { return Json(one.passwordFile); }},
    {keys::kKeyFile, [](const ControllerSettings& one) { return Json(one.keyFile); }},
    {keys::kProtocol, [](const ControllerSettings& one) { return Json(one.protocol); }},
    {keys::kCipherSuite, [](const ControllerSettings& one) { return Json(one.cipherSuite); }},
    {keys::kPrivilegeLevel, [](const ControllerSettings& one) { return Json(one.privilegeLevel); }},
    {keys::kWorkarounds, [](const ControllerSettings& one) { return Json(one.workarounds); }},
};
constexpr ControllerKey kSimulatedKeys[] = {
    {keys::kProfile, [](const ControllerSettings& one) { return Json(one.profile); }},
};

// A key of a table by its full name: "machine.type".
std::string Key(const std::string& table, const char* key) { return table + "." + key; }

// The command-line option that sets a variable in the caller's place.
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
        Add(Key(name, keys::kFolder), source.folder);
        Add(Key(name, keys::kFile), source.file);
        Add(Key(name, keys::kPattern), source.pattern);
        Add(Key(name, keys::kReplacement), source.replacement);
    }

    void Add(const std::string& name, const ControllerSettings& controller) {
        switch (controller.transport) {
            case platform::TransportKind::InBand:
                AddKeys(name, controller, keys::kInBand, kInBandKeys);
                AddTimeLimit(name, controller);
                break;
            case platform::TransportKind::Lan:
                AddKeys(name, controller, keys::kLan, kLanKeys);
                AddTimeLimit(name, controller);
                break;
            case platform::TransportKind::Simulated:
                AddKeys(name, controller, keys::kSimulated, kSimulatedKeys);
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
            {Key(name, key), std::move(value),
             place == controller.places.end() ? otherwise : Source{"file", place->second}});
    }

    template <class Keys>
    void AddKeys(const std::string& name, const ControllerSettings& controller,
                 const char* transport, const Keys& rest) {
        const Source byDefault{"default", ""};
        AddKey(name, controller, keys::kTransport, transport, byDefault);
        for (const ControllerKey& key : rest)
            AddKey(name, controller, key.name, key.value(controller), byDefault);
    }

    void AddTimeLimit(const std::string& name, const ControllerSettings& controller) {
        const Setting<int>& ofAll = session.settings.timeLimit;
        AddKey(name, controller, keys::kTimeLimit, controller.timeLimit.value_or(ofAll.value),
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
    all.Add(Key(keys::kMachine, keys::kType), settings.machineType);
    all.Add(Key(keys::kMachine, keys::kBiosId), settings.biosId);
    all.Add(Key(keys::kMachine, keys::kTypeSource), settings.machineTypeSource);
    all.Add(Key(keys::kMachine, keys::kBiosIdSource), settings.biosIdSource);
    all.Add(Key(keys::kDiagnostics, keys::kRoot), settings.root);
    all.Add(Key(keys::kDiagnostics, keys::kOemBuild), settings.oemBuild);
    all.Add(Key(keys::kControllers, keys::kOxc), settings.oxc);
    all.Add(Key(keys::kControllers, keys::kTimeLimit), settings.timeLimit);
    all.Add(Key(keys::kCim, keys::kDeriveAssociations), settings.deriveAssociations);
    all.Add(Key(keys::kLog, keys::kSink), settings.log, session.choseLog);
    all.Add(Key(keys::kLog, keys::kLevel), settings.logLevel, session.choseLogLevel);
    all.Add(keys::kController, settings.controllers);
    if (settings.controllers.origin == Origin::File) {
        std::size_t position = 0;
        for (const ControllerSettings& controller : *settings.controllers.value)
            all.Add(keys::kController + ("[" + std::to_string(position++) + "]"), controller);
    }
    return all.Take();
}

}  // namespace cli
