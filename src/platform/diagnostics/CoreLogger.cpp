#include <platform/diagnostics/CoreLogger.h>
#include <platform/diagnostics/LineFormat.h>
#include <platform/diagnostics/LogSinks.h>
#include <platform/diagnostics/SyslogSink.h>
#include <platform/settings/Settings.h>
#include <spdlog/logger.h>

namespace NQUVZDX20 {

namespace {

constexpr const char* kName = "bmci2c";

// Tells syslog, once per logger, that lines are lost.
spdlog::err_handler OnLostLine() {
    return [told = false](const std::string& reason) mutable {
        if (told) return;
        told = true;
        spdlog::logger(kName, std::make_shared<SyslogSink>())
            .critical("Log: lines are lost: {}.", reason);
    };
}

// Not entered into spdlog's registry, which other code in the server may use.
std::unique_ptr<spdlog::logger> MakeLogger(const platform::Settings& settings) {
    const LogSinks opened = OpenLogSinks(settings);
    auto logger = std::make_unique<spdlog::logger>(kName, opened.sinks.begin(), opened.sinks.end());
    logger->set_level(spdlog::level::trace);
    logger->set_error_handler(OnLostLine());
    for (const std::string& complaint : opened.complaints) logger->critical(complaint);
    return logger;
}

}  // namespace

CoreLogger::CoreLogger() = default;
CoreLogger::~CoreLogger() = default;

void CoreLogger::FollowSettings() {
    if (settled) return;
    const auto settings = platform::CurrentSettings();
    const bool readable = settings->problem.empty();
    if (readable || !logger) logger = MakeLogger(*settings);
    settled = readable;
}

void CoreLogger::Log(EZDXLogSeverity severity, const std::string& text) {
    const std::lock_guard lock(mutex);
    FollowSettings();
    logger->log(LevelOf(severity), text);
}

}  // namespace NQUVZDX20
