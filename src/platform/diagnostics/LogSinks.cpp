#include <platform/diagnostics/FileSink.h>
#include <platform/diagnostics/JsonFormat.h>
#include <platform/diagnostics/LineFormat.h>
#include <platform/diagnostics/LogSinks.h>
#include <platform/diagnostics/SyslogSink.h>
#include <platform/settings/FileText.h>
#include <platform/settings/LogTarget.h>
#include <spdlog/sinks/stdout_sinks.h>

#include <memory>
#include <system_error>
#include <utility>

namespace NQUVZDX20 {

namespace {

using platform::LogTarget;
using platform::LogTargetKind;

spdlog::sink_ptr WithFormat(spdlog::sink_ptr sink, std::unique_ptr<spdlog::formatter> format) {
    sink->set_formatter(std::move(format));
    return sink;
}

spdlog::sink_ptr OpenSink(const LogTarget& target) {
    switch (target.kind) {
        case LogTargetKind::StandardError:
            return WithFormat(std::make_shared<spdlog::sinks::stderr_sink_st>(), MakeTextFormat());
        case LogTargetKind::File:
            return WithFormat(std::make_shared<FileSink>(target.path), MakeTextFormat());
        case LogTargetKind::Json:
            return WithFormat(std::make_shared<FileSink>(target.path), MakeJsonFormat());
        default:
            return std::make_shared<SyslogSink>();
    }
}

// Adds the sink of a target for lines up to a severity.
void AddSink(const LogTarget& target, int severity, LogSinks& opened) {
    spdlog::sink_ptr sink;
    try {
        sink = OpenSink(target);
    } catch (const std::system_error& error) {
        opened.complaints.push_back("Log: " + target.path + " cannot be opened: " +
                                    platform::ReasonText(error.code().value()) +
                                    ". Its lines go to syslog.");
        sink = OpenSink({LogTargetKind::Syslog, ""});
    }
    sink->set_level(LevelOf(severity));
    opened.sinks.push_back(std::move(sink));
}

}  // namespace

LogSinks OpenLogSinks(const platform::Settings& settings) {
    LogSinks opened;
    const LogTarget target = platform::ParseLogTarget(settings.log.value).value_or(LogTarget{});
    if (target.kind != LogTargetKind::None) AddSink(target, settings.logLevel.value, opened);
    return opened;
}

}  // namespace NQUVZDX20
