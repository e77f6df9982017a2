#include <platform/service_processor/lan/Format15.h>

#include <array>
#include <stdexcept>

namespace platform::lan {

namespace {

constexpr std::size_t kAuthenticationPlace = 4;
constexpr std::size_t kSessionPlace = 9;
constexpr std::size_t kCodePlace15 = 13;
constexpr std::size_t kCodeSize = 16;
constexpr std::uint8_t kAuthenticationMask = 0x0F;

std::uint8_t AuthenticationOf(ByteView packet) {
    return packet[kAuthenticationPlace] & kAuthenticationMask;
}

// Of the byte that tells the length of the message.
std::size_t LengthPlace(ByteView packet) {
    return AuthenticationOf(packet) == IPMI_AUTHENTICATION_TYPE_NONE ? kCodePlace15
                                                                     : kCodePlace15 + kCodeSize;
}

constexpr std::uint32_t Swapped(std::uint32_t number) { return __builtin_bswap32(number); }

}  // namespace

Format15::Format15(const LanAccount& lanAccount, const Session15& session15)
    : account(lanAccount), session(session15) {}

Bytes Format15::Pack(const LanMessage& message) {
    const std::uint8_t authentication =
        session.isAuthenticated ? IPMI_AUTHENTICATION_TYPE_MD5 : IPMI_AUTHENTICATION_TYPE_NONE;
    const FiidObject rmcp(tmpl_rmcp_hdr);
    const FiidObject header(tmpl_lan_session_hdr);
    const FiidObject messageHeader = MessageHeader(message);
    const FiidObject body = MessageBody(message);
    fill_rmcp_hdr_ipmi(rmcp.Get());
    fill_lan_session_hdr(authentication, NextSequence(), session.id, header.Get());
    Bytes packet(kLongestPacket);
    const int length = assemble_ipmi_lan_pkt(
        rmcp.Get(), header.Get(), messageHeader.Get(), body.Get(),
        session.isAuthenticated ? account.password.Text() : nullptr,
        session.isAuthenticated ? account.password.Length() : 0, packet.data(),
        static_cast<unsigned int>(packet.size()), IPMI_INTERFACE_FLAGS_DEFAULT);
    return Assembled(std::move(packet), length);
}

std::uint32_t Format15::NextSequence() {
    if (session.sequence == 0) return 0;
    const std::uint32_t sequence = session.sequence++;
    if (session.sequence == 0) session.sequence = 1;
    return account.Has("endianseq") ? Swapped(sequence) : sequence;
}

std::optional<Flaw> Format15::FlawOfHeader(ByteView packet) const {
    const bool acceptsZero = account.Has("idzero");
    const std::uint32_t id = ReadNumber(packet, kSessionPlace);
    if (id != session.id && !(acceptsZero && id == 0)) return Flaw::Session;
    if (AuthenticationOf(packet) == IPMI_AUTHENTICATION_TYPE_NONE) {
        return session.isAuthenticated ? std::optional(Flaw::Authentication) : std::nullopt;
    }
    if (account.Has("noauthcodecheck")) return std::nullopt;
    const int check = ipmi_lan_check_packet_session_authentication_code(
        packet.data(), static_cast<unsigned int>(packet.size()), IPMI_AUTHENTICATION_TYPE_MD5,
        account.password.Text(), account.password.Length());
    return check == 1 ? std::nullopt : std::optional(Flaw::Authentication);
}

std::variant<Bytes, Flaw> Format15::Unpack(ByteView packet) const {
    if (ipmi_is_ipmi_1_5_packet(packet.data(), static_cast<unsigned int>(packet.size())) != 1) {
        return Flaw::Unreadable;
    }
    if (packet.size() <= kCodePlace15 || packet.size() <= LengthPlace(packet)) {
        return Flaw::TooShort;
    }
    const std::size_t start = LengthPlace(packet) + 1;
    const std::size_t length = packet[LengthPlace(packet)];
    if (packet.size() < start + length) return Flaw::TooShort;
    if (const auto flaw = FlawOfHeader(packet)) return *flaw;
    const ByteView payload = packet.subspan(start, length);
    return Bytes(payload.begin(), payload.end());
}

}  // namespace platform::lan
