// Every setting in force, and where it came from.
#pragma once

#include <cli/Json.h>
#include <cli/Session.h>

#include <string>
#include <vector>

namespace cli {

// Where a setting came from.
struct Source {
    std::string kind;   // "default", "file", "profile", "environment", "command line", or "command"
                        // when the command chose it itself
    std::string place;  // "FILE:LINE", the variable, or the option; else empty
};

struct ListedSetting {
    std::string name;  // as in the settings file: "machine.type", "controller[0].host"
    Json value;        // null when nothing is set
    Source source;
};

// The files that were read, every key of the settings file, and every key of each [[controller]].
std::vector<ListedSetting> ListSettings(const Session& session);

}  // namespace cli
