// The headers before the payload of an RMCP+ packet (IPMI 2.0).
#pragma once

#include <platform/service_processor/UnusableAnswers.h>
#include <platform/service_processor/lan/Bytes.h>

#include <variant>

namespace platform::lan {

struct Packet20 {
    std::uint8_t type;  // FreeIPMI's number of the payload type
    bool isAuthenticated;
    bool isEncrypted;
    std::uint32_t sessionId;
    ByteView payload;  // with what encryption has added
};

// A view of the packet, or its flaw.
std::variant<Packet20, Flaw> ReadPacket20(ByteView packet);

// A packet of the handshake, which is outside any session.
Bytes HandshakePacket(std::uint8_t type, ByteView payload);

}  // namespace platform::lan
