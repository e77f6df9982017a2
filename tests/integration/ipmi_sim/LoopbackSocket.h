// A UDP socket of the loopback interface.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

struct Packet {
    std::uint16_t from;  // port
    std::vector<unsigned char> bytes;
};

class LoopbackSocket {
public:
    // Throws std::system_error.
    LoopbackSocket();
    LoopbackSocket(const LoopbackSocket&) = delete;
    LoopbackSocket& operator=(const LoopbackSocket&) = delete;
    ~LoopbackSocket();

    int Descriptor() const { return descriptor; }

    // A port that the kernel chooses; it is free again when this object ends. Throws
    // std::system_error.
    std::uint16_t BindAnyPort() const;

    void Send(std::uint16_t port, std::span<const unsigned char> bytes) const;

    // A packet that has come; nothing when none has.
    std::optional<Packet> Receive() const;

private:
    int descriptor;
};
