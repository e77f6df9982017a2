// Appends lines to a file.
#pragma once

#include <platform/diagnostics/Descriptor.h>
#include <spdlog/details/null_mutex.h>
#include <spdlog/sinks/base_sink.h>

#include <string>

namespace NQUVZDX20 {

// Each line is one write, so lines of several processes do not mix, and a line is in the file when
// it has been logged. Not locked: the core logger's lock guards it.
class FileSink final : public spdlog::sinks::base_sink<spdlog::details::null_mutex> {
public:
    // Opens or makes the file. Throws std::system_error.
    explicit FileSink(std::string filePath);

protected:
    void sink_it_(const spdlog::details::log_msg& message) override;
    void flush_() override {}

private:
    std::string path;
    Descriptor file;
};

}  // namespace NQUVZDX20
