// The keys of the settings file, platform.toml: whoever reads or shows a setting takes its name
// from here.
#pragma once

namespace platform::keys {

inline constexpr const char* kMachine = "machine";
inline constexpr const char* kType = "type";
inline constexpr const char* kBiosId = "bios_id";
inline constexpr const char* kTypeSource = "type_source";
inline constexpr const char* kBiosIdSource = "bios_id_source";

// Of a source.
inline constexpr const char* kFolder = "folder";
inline constexpr const char* kFile = "file";
inline constexpr const char* kPattern = "pattern";
inline constexpr const char* kReplacement = "replacement";

inline constexpr const char* kDiagnostics = "diagnostics";
inline constexpr const char* kRoot = "root";
inline constexpr const char* kOemBuild = "oem_build";

inline constexpr const char* kControllers = "controllers";
inline constexpr const char* kOxc = "oxc";
inline constexpr const char* kTimeLimit = "time_limit";  // also of a [[controller]]

// Of a product in `oxc`.
inline constexpr const char* kManufacturer = "manufacturer";
inline constexpr const char* kProduct = "product";

inline constexpr const char* kCim = "cim";
inline constexpr const char* kDeriveAssociations = "derive_associations";

inline constexpr const char* kLog = "log";
inline constexpr const char* kSink = "sink";
inline constexpr const char* kLevel = "level";

inline constexpr const char* kController = "controller";
inline constexpr const char* kTransport = "transport";
inline constexpr const char* kDevice = "device";
inline constexpr const char* kHost = "host";
inline constexpr const char* kPort = "port";
inline constexpr const char* kUser = "user";
inline constexpr const char* kPasswordFile = "password_file";
inline constexpr const char* kKeyFile = "k_g_file";
inline constexpr const char* kProtocol = "protocol";
inline constexpr const char* kCipherSuite = "cipher_suite";
inline constexpr const char* kWorkarounds = "workarounds";
inline constexpr const char* kPrivilegeLevel = "privilege_level";
inline constexpr const char* kProfile = "profile";

// What `transport` may hold.
inline constexpr const char* kInBand = "inband";
inline constexpr const char* kLan = "lan";
inline constexpr const char* kSimulated = "simulated";

}  // namespace platform::keys
