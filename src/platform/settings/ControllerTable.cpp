#include <platform/settings/ControllerTable.h>
#include <platform/settings/FileText.h>
#include <platform/settings/Keys.h>
#include <platform/settings/LanSupport.h>
#include <platform/settings/NameList.h>

#include <system_error>
#include <utility>

namespace platform {

namespace {

constexpr int kLongestTimeLimit = 60;  // seconds

std::string RequiredText(TomlTable& table, std::string_view key, const std::string& allowed) {
    return table.Required(key, table.NonEmptyText(key), allowed);
}

std::optional<std::string> ReadUser(TomlTable& table) {
    const std::optional<std::string> user = table.Text(keys::kUser);
    if (user && user->size() > kLongestUserName)
        table.Reject(keys::kUser, "a string of " + std::to_string(user->size()) + " bytes",
                     "is a string of at most " + std::to_string(kLongestUserName));
    return user;
}

std::optional<int> ReadCipherSuite(TomlTable& table) {
    const std::optional<int> suite = table.Integer(keys::kCipherSuite, 0, kLastCipherSuite);
    if (suite && !IsSupportedCipherSuite(*suite))
        table.Reject(keys::kCipherSuite, std::to_string(*suite),
                     std::string("are ") + kCipherSuitesInWords + ", which FreeIPMI supports");
    return suite;
}

void ReadInBand(TomlTable& table, const std::filesystem::path& folder, ControllerSettings& inBand) {
    inBand.device = folder / RequiredText(table, keys::kDevice,
                                          R"(is the path of a device, such as "/dev/ipmi0")");
    inBand.timeLimit = ReadTimeLimit(table, keys::kTimeLimit);
}

void ReadLan(TomlTable& table, const std::filesystem::path& folder, ControllerSettings& lan) {
    lan.host = RequiredText(table, keys::kHost, "is the name or the address of the controller");
    lan.timeLimit = ReadTimeLimit(table, keys::kTimeLimit);
    lan.port = table.Integer<std::uint16_t>(keys::kPort, 1, 65535).value_or(lan.port);
    lan.user = ReadUser(table).value_or(lan.user);
    if (const auto file = table.NonEmptyText(keys::kPasswordFile))
        lan.passwordFile = folder / *file;
    if (const auto file = table.NonEmptyText(keys::kKeyFile)) lan.keyFile = folder / *file;
    lan.protocol = table.Choice(keys::kProtocol, {"2.0", "1.5"}).value_or(lan.protocol);
    lan.cipherSuite = ReadCipherSuite(table).value_or(lan.cipherSuite);
    lan.workarounds =
        table.Choices(keys::kWorkarounds, WorkaroundNames(lan.protocol)).value_or(lan.workarounds);
    lan.privilegeLevel =
        table.Choice(keys::kPrivilegeLevel, PrivilegeLevelNames()).value_or(lan.privilegeLevel);
}

SimulatedProfile ReadProfile(TomlTable& table, const std::filesystem::path& folder,
                             const std::string& file) {
    try {
        ReadFileText(folder / file);
    } catch (const std::system_error& error) {
        table.Reject(keys::kProfile, '"' + file + "\" (" + ReasonText(error.code().value()) + ')',
                     "is the path of a file that can be read");
    }
    return ReadSimulatedProfile(folder / file);
}

ControllerSettings ReadSimulated(TomlTable& table, std::size_t position,
                                 const std::filesystem::path& folder) {
    const std::string file =
        RequiredText(table, keys::kProfile, "is the path of a simulated machine's profile");
    const SimulatedProfile profile = ReadProfile(table, folder, file);
    if (position >= profile.nodes.size())
        table.Reject(keys::kProfile,
                     "a profile with this number of [[node]] tables: " +
                         std::to_string(profile.nodes.size()),
                     "is a profile with one for this controller, the number of which is " +
                         std::to_string(position) + ", counted from 0");
    ControllerSettings controller = SimulatedController(profile, position);
    controller.profile = folder / file;
    return controller;
}

}  // namespace

std::optional<int> ReadTimeLimit(TomlTable& table, std::string_view key) {
    return table.Integer(key, 1, kLongestTimeLimit);
}

ControllerSettings ReadController(TomlTable& table, std::size_t position,
                                  const std::filesystem::path& folder) {
    const std::vector<std::string> transports = {keys::kInBand, keys::kLan, keys::kSimulated};
    const std::string transport = table.Required(
        keys::kTransport, table.Choice(keys::kTransport, transports), QuotedNames(transports));
    ControllerSettings controller;
    if (transport == keys::kSimulated) {
        controller = ReadSimulated(table, position, folder);
    } else if (transport == keys::kLan) {
        controller.transport = TransportKind::Lan;
        ReadLan(table, folder, controller);
    } else {
        ReadInBand(table, folder, controller);
    }
    table.RejectOtherKeys();
    controller.places = table.Places();
    return controller;
}

ControllerSettings SimulatedController(const SimulatedProfile& profile, std::size_t position) {
    ControllerSettings controller;
    controller.transport = TransportKind::Simulated;
    controller.simulated = std::make_shared<const SimulatedNode>(profile.nodes.at(position));
    controller.simulatedGeneration = profile.generation;
    return controller;
}

}  // namespace platform
