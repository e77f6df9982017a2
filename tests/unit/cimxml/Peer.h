// A client's end of a connection to a server on this machine.
#pragma once

#include <arpa/inet.h>
#include <cimxml/net/Descriptor.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <string>

namespace cimxml {

class Peer {
public:
    explicit Peer(const std::string& address) : socket(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in server{};
        server.sin_family = AF_INET;
        server.sin_port =
            htons(static_cast<std::uint16_t>(std::stoi(address.substr(address.rfind(':') + 1))));
        server.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const int failed =
            ::connect(socket.Get(), reinterpret_cast<sockaddr*>(&server), sizeof server);
        EXPECT_EQ(failed, 0);
    }

    void Send(const std::string& text) const {
        EXPECT_EQ(::send(socket.Get(), text.data(), text.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(text.size()));
    }

    // Says that nothing more is sent.
    void EndSending() const { ::shutdown(socket.Get(), SHUT_WR); }

    // Everything until the server closes.
    std::string Rest() const {
        std::string all;
        char block[4096];
        for (ssize_t count = 0; (count = ::recv(socket.Get(), block, sizeof block, 0)) > 0;)
            all.append(block, static_cast<std::size_t>(count));
        return all;
    }

    // Until the text has come.
    std::string Until(const std::string& text) const {
        std::string all;
        char letter = 0;
        while (!all.ends_with(text) && ::recv(socket.Get(), &letter, 1, 0) == 1) all += letter;
        return all;
    }

private:
    Descriptor socket;
};

}  // namespace cimxml
