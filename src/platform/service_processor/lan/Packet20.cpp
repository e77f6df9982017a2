#include <freeipmi/freeipmi.h>
#include <platform/service_processor/lan/Packet20.h>

namespace platform::lan {

namespace {

// Before the payload type: RMCP's version, a reserved byte, "no acknowledgement", class "IPMI";
// then the format of IPMI 2.0.
constexpr std::uint8_t kBeginning[] = {0x06, 0x00, 0xFF, 0x07, 0x06};

constexpr std::size_t kTypePlace20 = 5;
constexpr std::size_t kSessionPlace20 = 6;
constexpr std::size_t kLengthPlace20 = 14;
constexpr std::size_t kHeaderSize20 = 16;
constexpr std::uint8_t kTypeMask = 0x3F;
constexpr std::uint8_t kAuthenticatedBit = 0x40;
constexpr std::uint8_t kEncryptedBit = 0x80;

}  // namespace

std::variant<Packet20, Flaw> ReadPacket20(ByteView packet) {
    if (ipmi_is_ipmi_2_0_packet(packet.data(), static_cast<unsigned int>(packet.size())) != 1) {
        return Flaw::Unreadable;
    }
    if (packet.size() < kHeaderSize20) return Flaw::TooShort;
    const std::size_t length = packet[kLengthPlace20] + 0x100U * packet[kLengthPlace20 + 1];
    if (packet.size() < kHeaderSize20 + length) return Flaw::TooShort;
    const std::uint8_t type = packet[kTypePlace20];
    return Packet20{.type = static_cast<std::uint8_t>(type & kTypeMask),
                    .isAuthenticated = (type & kAuthenticatedBit) != 0,
                    .isEncrypted = (type & kEncryptedBit) != 0,
                    .sessionId = ReadNumber(packet, kSessionPlace20),
                    .payload = packet.subspan(kHeaderSize20, length)};
}

Bytes HandshakePacket(std::uint8_t type, ByteView payload) {
    Bytes packet(std::begin(kBeginning), std::end(kBeginning));
    packet.push_back(type);
    packet.resize(kLengthPlace20);  // no session, no sequence number
    packet.push_back(static_cast<std::uint8_t>(payload.size()));
    packet.push_back(0);
    packet.insert(packet.end(), payload.begin(), payload.end());
    return packet;
}

}  // namespace platform::lan
