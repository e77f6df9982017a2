#include <arpa/inet.h>
#include <integration/ipmi_sim/LoopbackSocket.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace {

constexpr std::size_t kLongestPacket = 2048;

sockaddr_in Loopback(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

}  // namespace

LoopbackSocket::LoopbackSocket() : descriptor(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
    if (descriptor < 0) throw std::system_error(errno, std::generic_category(), "socket");
}

LoopbackSocket::~LoopbackSocket() { close(descriptor); }

std::uint16_t LoopbackSocket::BindAnyPort() const {
    sockaddr_in address = Loopback(0);
    socklen_t size = sizeof address;
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    if (bind(descriptor, plain, size) != 0 || getsockname(descriptor, plain, &size) != 0) {
        throw std::system_error(errno, std::generic_category(), "bind");
    }
    return ntohs(address.sin_port);
}

void LoopbackSocket::Send(std::uint16_t port, std::span<const unsigned char> bytes) const {
    const sockaddr_in address = Loopback(port);
    sendto(descriptor, bytes.data(), bytes.size(), 0, reinterpret_cast<const sockaddr*>(&address),
           sizeof address);
}

std::optional<Packet> LoopbackSocket::Receive() const {
    sockaddr_in sender{};
    socklen_t size = sizeof sender;
    std::vector<unsigned char> bytes(kLongestPacket);
    const ssize_t length = recvfrom(descriptor, bytes.data(), bytes.size(), MSG_DONTWAIT,
                                    reinterpret_cast<sockaddr*>(&sender), &size);
    if (length < 0) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(length));
    return Packet{.from = ntohs(sender.sin_port), .bytes = std::move(bytes)};
}
