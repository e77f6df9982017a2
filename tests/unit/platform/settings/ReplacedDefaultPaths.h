// Stands in for the paths of the installation, which a test must not touch.
#pragma once

#include <string>

inline std::string replacedSettingsFile = "/nonexistent/platform.toml";
inline const char* const kReplacedRoot = "/installed/share";
