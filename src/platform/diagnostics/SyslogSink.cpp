#include <platform/diagnostics/LineFormat.h>
#include <platform/diagnostics/SyslogSink.h>
#include <platform/diagnostics/SyslogSocket.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

#include <cerrno>
#include <cstring>

namespace NQUVZDX20 {

namespace {

// Timeout for a line if syslog is slow. While it stays slow, only the first line waits: a hanging
// syslog must not hang the server.
constexpr timeval kPatience{.tv_sec = 1, .tv_usec = 0};

sockaddr_un SyslogAddress() {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, SyslogSocketPath(), sizeof address.sun_path - 1);
    return address;
}

}  // namespace

SyslogSink::SyslogSink() : connection(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
    ::setsockopt(connection.Get(), SOL_SOCKET, SO_SNDTIMEO, &kPatience, sizeof kPatience);
    set_formatter_(MakeSyslogFormat());
}

void SyslogSink::sink_it_(const spdlog::details::log_msg& message) {
    spdlog::memory_buf_t line;
    formatter_->format(message, line);
    // Addressed anew each time, so that a restarted syslog is found again.
    const sockaddr_un address = SyslogAddress();
    const int flags = MSG_NOSIGNAL | (stalled ? MSG_DONTWAIT : 0);
    const ssize_t sent = ::sendto(connection.Get(), line.data(), line.size(), flags,
                                  reinterpret_cast<const sockaddr*>(&address), sizeof address);
    stalled = sent < 0 && (errno == EAGAIN || errno == EWOULDBLOCK);
}

}  // namespace NQUVZDX20
