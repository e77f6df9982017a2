#include <fcntl.h>
#include <platform/diagnostics/FileSink.h>
#include <platform/settings/FileText.h>

#include <cerrno>
#include <string_view>
#include <system_error>
#include <utility>

namespace NQUVZDX20 {

namespace {

constexpr mode_t kMode = 0640;  // lines may name hosts and users

}  // namespace

FileSink::FileSink(std::string filePath)
    : path(std::move(filePath)),
      file(::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY, kMode)) {
    if (file.Get() < 0) throw std::system_error(errno, std::generic_category());
}

void FileSink::sink_it_(const spdlog::details::log_msg& message) {
    spdlog::memory_buf_t line;
    formatter_->format(message, line);
    std::string_view rest(line.data(), line.size());
    while (!rest.empty()) {
        const ssize_t written = ::write(file.Get(), rest.data(), rest.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0)
            throw spdlog::spdlog_ex(path + " cannot be written: " + platform::ReasonText(errno));
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
}

}  // namespace NQUVZDX20
