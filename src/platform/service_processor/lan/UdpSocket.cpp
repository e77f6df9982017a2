#include <netdb.h>
#include <platform/service_processor/lan/UdpSocket.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <memory>
#include <system_error>

namespace platform::lan {

namespace {

struct FreeAddressInfo {
    void operator()(addrinfo* info) const { freeaddrinfo(info); }
};

using AddressInfo = std::unique_ptr<addrinfo, FreeAddressInfo>;

// Null when the text is no address.
AddressInfo InfoOf(const std::string& address, std::uint16_t port) {
    addrinfo hints{};
    hints.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV;
    hints.ai_socktype = SOCK_DGRAM;
    addrinfo* info = nullptr;
    getaddrinfo(address.c_str(), std::to_string(port).c_str(), &hints, &info);
    return AddressInfo(info);
}

[[noreturn]] void Fail(int reason, const char* call) {
    throw std::system_error(reason, std::generic_category(), call);
}

int ConnectedSocket(const std::string& address, std::uint16_t port) {
    const AddressInfo info = InfoOf(address, port);
    if (!info) Fail(EADDRNOTAVAIL, "getaddrinfo");
    const int made = socket(info->ai_family, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (made < 0) Fail(errno, "socket");
    if (connect(made, info->ai_addr, info->ai_addrlen) != 0) {
        const int reason = errno;
        close(made);
        Fail(reason, "connect");
    }
    return made;
}

int MillisecondsUntil(Time time) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(time - Now()).count();
    return static_cast<int>(std::max<decltype(left)>(left, 0));
}

}  // namespace

UdpSocket::UdpSocket(const std::string& address, std::uint16_t port)
    : descriptor(ConnectedSocket(address, port)) {}

UdpSocket::~UdpSocket() { close(descriptor); }

void UdpSocket::Send(ByteView packet) {
    if (send(descriptor, packet.data(), packet.size(), MSG_NOSIGNAL) < 0) error = errno;
}

std::optional<Bytes> UdpSocket::Receive(Time until) {
    pollfd waiting{.fd = descriptor, .events = POLLIN, .revents = 0};
    if (poll(&waiting, 1, MillisecondsUntil(until)) <= 0) return std::nullopt;
    Bytes packet(kLongestPacket);
    const ssize_t length = recv(descriptor, packet.data(), packet.size(), 0);
    if (length < 0) {
        if (errno != EAGAIN && errno != EINTR) error = errno;
        return std::nullopt;
    }
    packet.resize(static_cast<std::size_t>(length));
    return packet;
}

}  // namespace platform::lan
