// The address at which the server can be reached.
#pragma once

#include <cimxml/SetupError.h>
#include <cimxml/net/Descriptor.h>
#include <sys/socket.h>

#include <string>

namespace cimxml {

// A socket that accepts connections.
class Listener {
public:
    // "127.0.0.1:5988", "[::1]:5988" or "localhost:5988"; port 0 is any free one. Throws
    // SetupError.
    explicit Listener(const std::string& requestedAddress);

    // False when machines other than this one can reach it.
    bool IsLoopback() const;

    // Starts to accept connections. Throws SetupError.
    void Listen();

    // The address with the port that Listen() found: "127.0.0.1:5988".
    std::string Address() const;

    // AF_INET or AF_INET6.
    int Family() const { return address.ss_family; }
    int Socket() const { return socket.Get(); }

private:
    const std::string requested;
    sockaddr_storage address{};
    socklen_t addressLength = 0;
    Descriptor socket;
};

}  // namespace cimxml
