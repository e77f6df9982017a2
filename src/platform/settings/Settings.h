// The settings in force: one TOML file (platform.toml), a simulated-machine profile, and the
// environment (BMCI2C_CONFIG, BMCI2C_ROOT, BMCI2C_SIMULATE, BMCI2C_LOG and BMCI2C_LOG_LEVEL; an
// empty variable counts as unset).
//
// The environment takes precedence over the file, the file over the defaults. A profile that
// BMCI2C_SIMULATE names is the whole machine: its machine type, BIOS identifier, OXC family, OEM
// build and controllers take precedence over the file.
//
// A relative path in the settings file starts at that file's folder, one in the environment at the
// working directory.
#pragma once

#include <platform/settings/KeyPlaces.h>
#include <platform/settings/SimulatedProfile.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace platform {

enum class Origin { Default, File, Environment, Profile };

// A value and where it came from.
template <class T>
struct Setting {
    T value{};
    Origin origin = Origin::Default;
    std::string place = {};  // "FILE:LINE" of a file and a profile, the variable of the environment
};

enum class TransportKind { InBand, Lan, Simulated };

// A controller's make, as it names itself in answer to Get Device ID.
struct ControllerProduct {
    std::uint32_t manufacturer = 0;  // 0 to kLastManufacturer
    std::uint16_t product = 0;

    bool operator==(const ControllerProduct&) const = default;
};

inline constexpr std::uint32_t kLastManufacturer = 0xFFFFF;  // 20 bits

// Whether the controllers are of the OXC family: yes, no, or as their answer to Get Device ID is
// one of these products.
using OxcFamily = std::variant<bool, std::vector<ControllerProduct>>;

// How one controller is reached.
struct ControllerSettings {
    TransportKind transport = TransportKind::InBand;
    std::optional<int> timeLimit;          // in-band, LAN: seconds; unset: Settings::timeLimit
    std::string device;                    // in-band: "/dev/ipmi0"
    bool isFound = false;                  // in-band: among the kernel's devices, not by settings
    std::string host;                      // LAN: name or address
    std::uint16_t port = 623;              // LAN: UDP port (RMCP)
    std::string user;                      // LAN
    std::string passwordFile;              // LAN: its first line is the password
    std::string keyFile;                   // LAN 2.0: its first line is the key K_G
    std::string protocol = "2.0";          // LAN: "2.0" (RMCP+) or "1.5"
    int cipherSuite = 3;                   // LAN 2.0: of those that FreeIPMI supports
    std::vector<std::string> workarounds;  // LAN: FreeIPMI's names of this protocol
    std::string privilegeLevel = "administrator";    // LAN: "user", "operator", "administrator"
    std::shared_ptr<const SimulatedNode> simulated;  // simulated: how it answers
    int simulatedGeneration = 1;                     // simulated: answer of the generation query
    std::string profile;                             // simulated: the file that it is from
    KeyPlaces places;                                // of the keys of its [[controller]]
};

// Where one of SMBIOS's texts is read, and what of it counts.
struct SmbiosSource {
    Setting<std::string> folder{"/sys/class/dmi/id"};
    Setting<std::string> file;                          // its name in the folder
    Setting<std::optional<std::string>> pattern{};      // as in TextPattern.h
    Setting<std::optional<std::string>> replacement{};  // the same
};

struct Settings {
    Setting<std::string> configFile;   // the file read; empty when there is none
    Setting<std::string> profileFile;  // the profile in force; empty when there is none
    Setting<std::optional<std::string>> machineType;  // replaces what SMBIOS says
    Setting<std::optional<std::string>> biosId;
    SmbiosSource machineTypeSource{.file = {"product_name"}};
    SmbiosSource biosIdSource{.file = {"bios_version"}};
    Setting<std::string> root;  // diagnostics root directory
    Setting<bool> oemBuild;
    Setting<OxcFamily> oxc;
    Setting<int> timeLimit{4};  // seconds, per controller and command
    // Unset: every /dev/ipmiN is a controller, in numeric order.
    Setting<std::optional<std::vector<ControllerSettings>>> controllers;
    Setting<bool> deriveAssociations;    // for CIM servers that do not do it themselves
    Setting<std::string> log{"syslog"};  // as in LogTarget.h
    Setting<int> logLevel{2};            // messages of this severity or higher are written
    std::string problem;                 // why the settings could not be read; else empty
    std::string problemAdvice;           // what to do about it
};

// Variables by name, instead of those of the process.
using Variables = std::map<std::string, std::string>;

// Reads what the environment names; a `chosen` variable takes precedence over the one of the
// process. Throws SettingsError.
Settings ReadSettings(const Variables& chosen = {});

// The same; while that cannot be done: the defaults, what is right among BMCI2C_ROOT and the log
// variables (they do not depend on a file), no controller at all, and the problem.
Settings ReadSettingsOrProblem(const Variables& chosen = {});

// The settings that the module works with: read once. While they cannot be read, every call tries
// again and gives ReadSettingsOrProblem(), so that a broken file never lets the test talk to the
// wrong controllers.
std::shared_ptr<const Settings> CurrentSettings();

// Makes these settings, which must have been readable, those of the process: for a program that has
// read them with its own choices. Settings that are in use already stay in use where they are: the
// core logger keeps its sinks.
void UseSettings(Settings settings);

}  // namespace platform
