#include <platform/diagnostics/EscapedText.h>
#include <platform/diagnostics/ILogger.h>
#include <platform/diagnostics/LineFormat.h>
#include <platform/diagnostics/LinePattern.h>
#include <syslog.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace NQUVZDX20 {

namespace {

void WriteSeverity(const spdlog::details::log_msg& message, const std::tm& /*time*/,
                   spdlog::memory_buf_t& line) {
    Append(std::to_string(SeverityOf(message.level)), line);
}

void WriteSyslogPriority(const spdlog::details::log_msg& message, const std::tm& /*time*/,
                         spdlog::memory_buf_t& line) {
    constexpr int kPriorities[] = {LOG_CRIT, LOG_WARNING, LOG_ERR, LOG_INFO, LOG_DEBUG};
    static_assert(std::size(kPriorities) == kLogFinest + 1);
    Append(std::to_string(LOG_DAEMON | kPriorities[SeverityOf(message.level)]), line);
}

void WriteEscapedText(const spdlog::details::log_msg& message, const std::tm& /*time*/,
                      spdlog::memory_buf_t& line) {
    Append(EscapeControls({message.payload.data(), message.payload.size()}), line);
}

}  // namespace

spdlog::level::level_enum LevelOf(int severity) {
    const int known = std::clamp<int>(severity, kLogFatal, kLogFinest);
    return static_cast<spdlog::level::level_enum>(spdlog::level::critical - known);
}

int SeverityOf(spdlog::level::level_enum level) { return spdlog::level::critical - level; }

std::unique_ptr<spdlog::formatter> MakeTextFormat() {
    return MakePattern("%Y-%m-%d %H:%M:%S.%e %z bmci2c[%P] %*: %v", "\n",
                       {{'*', WriteSeverity}, {'v', WriteEscapedText}});
}

std::unique_ptr<spdlog::formatter> MakeSyslogFormat() {
    return MakePattern("<%*>%b %d %H:%M:%S bmci2c[%P]: %v", "", {{'*', WriteSyslogPriority}});
}

}  // namespace NQUVZDX20
