// Where the core logger's lines go, as a setting writes it.
#pragma once

#include <optional>
#include <string>

namespace platform {

enum class LogTargetKind { Syslog, StandardError, None, File, Json };

struct LogTarget {
    LogTargetKind kind = LogTargetKind::Syslog;
    std::string path;  // of File and Json
};

// The severities that a log can be limited to.
inline constexpr int kLowestLogLevel = 0;
inline constexpr int kHighestLogLevel = 4;

// How the forms are named in an error.
inline constexpr const char* kLogTargetForms =
    R"(are "syslog", "stderr", "none", "file:PATH" and "json:PATH")";

// Reads one of those forms; nothing when the text is none of them.
std::optional<LogTarget> ParseLogTarget(const std::string& text);

// The form that ParseLogTarget reads.
std::string LogTargetText(const LogTarget& target);

}  // namespace platform
