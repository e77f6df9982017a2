// The sinks that the settings ask for.
#pragma once

#include <platform/settings/Settings.h>
#include <spdlog/common.h>

#include <string>
#include <vector>

namespace NQUVZDX20 {

struct LogSinks {
    std::vector<spdlog::sink_ptr> sinks;
    std::vector<std::string> complaints;  // why a sink is not what was asked for
};

// Opens them; syslog stands in for one that cannot be opened.
LogSinks OpenLogSinks(const platform::Settings& settings);

}  // namespace NQUVZDX20
