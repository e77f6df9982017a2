#include "SyslogServer.h"

#include <platform/diagnostics/SyslogSocket.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace NQUVZDX20 {

const char* SyslogSocketPath() { return replacedSyslogSocket.c_str(); }

}  // namespace NQUVZDX20

SyslogServer::SyslogServer(const std::string& socketPath)
    : path(socketPath), connection(::socket(AF_UNIX, SOCK_DGRAM, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    if (::bind(connection, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        throw std::system_error(errno, std::generic_category(), path);
}

SyslogServer::~SyslogServer() {
    ::close(connection);
    ::unlink(path.c_str());
}

std::optional<std::string> SyslogServer::Next() const {
    std::array<char, 65536> buffer;
    const ssize_t length = ::recv(connection, buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (length < 0) return std::nullopt;
    return std::string(buffer.data(), static_cast<std::size_t>(length));
}

std::optional<std::string> SyslogServer::NextText() const {
    std::optional<std::string> message = Next();
    if (message) message->erase(0, message->find("]: ") + 3);
    return message;
}
