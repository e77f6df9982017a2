// How a line of the core logger is written, and how its severity passes through spdlog.
#pragma once

#include <spdlog/common.h>
#include <spdlog/formatter.h>

#include <memory>

namespace NQUVZDX20 {

// spdlog's levels increase with severity, severity numbers decrease. Other numbers become the
// nearest severity.
spdlog::level::level_enum LevelOf(int severity);
int SeverityOf(spdlog::level::level_enum level);

// "2024-05-31 12:00:00.123 +01:00 bmci2c[4711] 2: text" and a line break. Control characters of the
// text are escaped, so a text of several lines stays one line.
std::unique_ptr<spdlog::formatter> MakeTextFormat();

// "<27>May 31 12:00:00 bmci2c[4711]: text", as syslog's socket takes it, with the text as it is.
std::unique_ptr<spdlog::formatter> MakeSyslogFormat();

}  // namespace NQUVZDX20
