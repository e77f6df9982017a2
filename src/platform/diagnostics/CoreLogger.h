// The core logger: lines go where the settings say.
#pragma once

#include <platform/diagnostics/ILogger.h>

#include <memory>
#include <mutex>
#include <string>

namespace spdlog {
class logger;
}

namespace NQUVZDX20 {

// Safe from any thread. Opens its sinks at the first line, and again when settings that could not
// be read have become readable. A sink that cannot be opened is replaced by syslog, which gets a
// line that says why; a line that cannot be written is lost, which is reported to syslog once. So
// Log never fails because of a sink.
class CoreLogger final : public ILogger {
public:
    CoreLogger();
    CoreLogger(const CoreLogger&) = delete;
    CoreLogger& operator=(const CoreLogger&) = delete;
    ~CoreLogger() override;

    void Log(EZDXLogSeverity severity, const std::string& text) override;

private:
    void FollowSettings();

    std::mutex mutex;  // guards the members below, and the sinks of `logger`
    std::unique_ptr<spdlog::logger> logger;
    bool settled = false;  // `logger` was made from settings that could be read
};

}  // namespace NQUVZDX20
