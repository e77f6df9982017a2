#include <arpa/inet.h>
#include <cimxml/net/Listener.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstring>
#include <memory>
#include <system_error>

namespace cimxml {

namespace {

struct FreeAddresses {
    void operator()(addrinfo* addresses) const { ::freeaddrinfo(addresses); }
};
using Addresses = std::unique_ptr<addrinfo, FreeAddresses>;

[[noreturn]] void Fail(const std::string& address, const std::string& reason) {
    throw SetupError("The server cannot listen on '" + address + "': " + reason + ".");
}

[[noreturn]] void FailWithErrno(const std::string& address) {
    Fail(address, std::generic_category().message(errno));
}

bool IsPort(const std::string& text) {
    return !text.empty() && text.size() <= 5 &&
           text.find_first_not_of("0123456789") == std::string::npos && std::stoi(text) <= 65535;
}

Addresses Resolve(const std::string& address) {
    const auto colon = address.rfind(':');
    std::string machine = address.substr(0, colon);
    const std::string port = colon == std::string::npos ? "" : address.substr(colon + 1);
    if (machine.starts_with('[') && machine.ends_with(']'))
        machine = machine.substr(1, machine.size() - 2);
    else if (machine.find(':') != std::string::npos)
        machine.clear();
    // The resolver takes "*" for this machine only, but users who write it mean the opposite.
    if (machine.empty() || machine == "*" || !IsPort(port))
        Fail(address, "it must have the form ADDRESS:PORT, as 127.0.0.1:5988 or [::1]:5988");
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (const int error = ::getaddrinfo(machine.c_str(), port.c_str(), &hints, &found); error != 0)
        Fail(address, ::gai_strerror(error));
    return Addresses(found);
}

void Enable(int socket, int level, int option) {
    constexpr int kOn = 1;
    ::setsockopt(socket, level, option, &kOn, sizeof kOn);
}

std::string AddressText(const sockaddr_storage& address) {
    char machine[INET6_ADDRSTRLEN] = {};
    if (address.ss_family == AF_INET6) {
        const auto& v6 = reinterpret_cast<const sockaddr_in6&>(address);
        ::inet_ntop(AF_INET6, &v6.sin6_addr, machine, sizeof machine);
        return "[" + std::string(machine) + "]:" + std::to_string(ntohs(v6.sin6_port));
    }
    const auto& v4 = reinterpret_cast<const sockaddr_in&>(address);
    ::inet_ntop(AF_INET, &v4.sin_addr, machine, sizeof machine);
    return std::string(machine) + ":" + std::to_string(ntohs(v4.sin_port));
}

}  // namespace

Listener::Listener(const std::string& requestedAddress) : requested(requestedAddress) {
    const Addresses resolved = Resolve(requested);
    addressLength = resolved->ai_addrlen;
    std::memcpy(&address, resolved->ai_addr, addressLength);
}

bool Listener::IsLoopback() const {
    constexpr std::uint32_t kLoopbackNet = 127;
    if (address.ss_family == AF_INET) {
        const auto& v4 = reinterpret_cast<const sockaddr_in&>(address);
        return ntohl(v4.sin_addr.s_addr) >> 24 == kLoopbackNet;
    }
    const in6_addr& v6 = reinterpret_cast<const sockaddr_in6&>(address).sin6_addr;
    return IN6_IS_ADDR_LOOPBACK(&v6) ||
           (IN6_IS_ADDR_V4MAPPED(&v6) && v6.s6_addr[12] == kLoopbackNet);
}

void Listener::Listen() {
    socket = Descriptor(::socket(address.ss_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!socket.IsOpen()) FailWithErrno(requested);
    Enable(Socket(), SOL_SOCKET, SO_REUSEADDR);
    if (address.ss_family == AF_INET6) Enable(Socket(), IPPROTO_IPV6, IPV6_V6ONLY);
    if (::bind(Socket(), reinterpret_cast<const sockaddr*>(&address), addressLength) != 0 ||
        ::listen(Socket(), SOMAXCONN) != 0)
        FailWithErrno(requested);
}

std::string Listener::Address() const {
    sockaddr_storage found{};
    socklen_t length = sizeof found;
    ::getsockname(Socket(), reinterpret_cast<sockaddr*>(&found), &length);
    return AddressText(found);
}

}  // namespace cimxml
