// Sends lines to syslog as "bmci2c".
#pragma once

#include <platform/diagnostics/Descriptor.h>
#include <spdlog/details/null_mutex.h>
#include <spdlog/sinks/base_sink.h>

namespace NQUVZDX20 {

// Writes to syslog's socket itself: openlog() would rename the lines of the whole server process
// that has loaded this library. A line that syslog does not take is lost, as with syslog(). Not
// locked: the core logger's lock guards it.
class SyslogSink final : public spdlog::sinks::base_sink<spdlog::details::null_mutex> {
public:
    SyslogSink();

protected:
    void sink_it_(const spdlog::details::log_msg& message) override;
    void flush_() override {}

private:
    Descriptor connection;
    bool stalled = false;  // syslog did not take the last line in time
};

}  // namespace NQUVZDX20
