#include <platform/service_processor/lan/Format20.h>

#include <utility>

namespace platform::lan {

namespace {

constexpr std::size_t kPayloadTypePlace = 5;
constexpr std::size_t kSessionPlace20 = 6;
constexpr std::size_t kLengthPlace20 = 14;
constexpr std::size_t kHeaderSize20 = 16;
constexpr std::uint8_t kPayloadTypeMask = 0x3F;
constexpr std::uint8_t kAuthenticatedBit = 0x40;
constexpr std::uint8_t kEncryptedBit = 0x80;

}  // namespace

Format20::Format20(const LanAccount& lanAccount, Session20 session20)
    : account(lanAccount), session(std::move(session20)) {}

Bytes Format20::Pack(const LanMessage& message) {
    const CipherAlgorithms& by = session.algorithms;
    const FiidObject rmcp(tmpl_rmcp_hdr);
    const FiidObject header(tmpl_rmcpplus_session_hdr);
    const FiidObject trailer(tmpl_rmcpplus_session_trlr);
    const FiidObject messageHeader = MessageHeader(message);
    const FiidObject body = MessageBody(message);
    if (++sequence == 0) sequence = 1;
    fill_rmcp_hdr_ipmi(rmcp.Get());
    fill_rmcpplus_session_hdr(IPMI_PAYLOAD_TYPE_IPMI, by.integrity != IPMI_INTEGRITY_ALGORITHM_NONE,
                              by.confidentiality != IPMI_CONFIDENTIALITY_ALGORITHM_NONE, 0, 0,
                              session.controllerId, sequence, header.Get());
    fill_rmcpplus_session_trlr(trailer.Get());
    Bytes packet(kLongestPacket);
    const int length = assemble_ipmi_rmcpplus_pkt(
        by.authentication, by.integrity, by.confidentiality, session.integrityKey.Data(),
        session.integrityKey.Length(), session.confidentialityKey.Data(),
        session.confidentialityKey.Length(), account.password.Text(), account.password.Length(),
        rmcp.Get(), header.Get(), messageHeader.Get(), body.Get(), trailer.Get(), packet.data(),
        static_cast<unsigned int>(packet.size()), IPMI_INTERFACE_FLAGS_DEFAULT);
    return Assembled(std::move(packet), length);
}

std::optional<Flaw> Format20::FlawOfHeader(ByteView packet) const {
    if (ipmi_is_ipmi_2_0_packet(packet.data(), static_cast<unsigned int>(packet.size())) != 1) {
        return Flaw::Unreadable;
    }
    if (packet.size() < kHeaderSize20) return Flaw::TooShort;
    const std::size_t length = packet[kLengthPlace20] + 0x100U * packet[kLengthPlace20 + 1];
    if (packet.size() < kHeaderSize20 + length) return Flaw::TooShort;
    const std::uint8_t type = packet[kPayloadTypePlace];
    if ((type & kPayloadTypeMask) != IPMI_PAYLOAD_TYPE_IPMI) {
        return IPMI_PAYLOAD_TYPE_SESSION_SETUP(type) ? Flaw::Late : Flaw::Unreadable;
    }
    if (ReadNumber(packet, kSessionPlace20) != session.ownId) return Flaw::Session;
    const bool isAuthenticated = (type & kAuthenticatedBit) != 0;
    const bool isEncrypted = (type & kEncryptedBit) != 0;
    if (isAuthenticated != (session.algorithms.integrity != IPMI_INTEGRITY_ALGORITHM_NONE)) {
        return Flaw::Authentication;
    }
    if (isEncrypted !=
        (session.algorithms.confidentiality != IPMI_CONFIDENTIALITY_ALGORITHM_NONE)) {
        return Flaw::Encryption;
    }
    return std::nullopt;
}

std::variant<Bytes, Flaw> Format20::Unpack(ByteView packet) const {
    if (const auto flaw = FlawOfHeader(packet)) return *flaw;
    const CipherAlgorithms& by = session.algorithms;
    const auto size = static_cast<unsigned int>(packet.size());
    const FiidObject rmcp(tmpl_rmcp_hdr);
    const FiidObject header(tmpl_rmcpplus_session_hdr);
    const FiidObject payload(tmpl_rmcpplus_payload);
    const FiidObject trailer(tmpl_rmcpplus_session_trlr);
    const FiidObject messageHeader = AnswerHeader();
    const FiidObject body = AnswerBody();
    const FiidObject messageTrailer = AnswerTrailer();
    if (unassemble_ipmi_rmcpplus_pkt(
            by.authentication, by.integrity, by.confidentiality, session.integrityKey.Data(),
            session.integrityKey.Length(), session.confidentialityKey.Data(),
            session.confidentialityKey.Length(), packet.data(), size, rmcp.Get(), header.Get(),
            payload.Get(), messageHeader.Get(), body.Get(), messageTrailer.Get(), trailer.Get(),
            IPMI_INTERFACE_FLAGS_NO_LEGAL_CHECK) < 0) {
        return Flaw::Unreadable;
    }
    // FreeIPMI does not read what follows a message that is too short.
    Bytes message = payload.Data("payload_data");
    if (message.size() < kShortestAnswer) return Flaw::TooShort;
    if (by.integrity != IPMI_INTEGRITY_ALGORITHM_NONE &&
        ipmi_rmcpplus_check_packet_session_authentication_code(
            by.integrity, packet.data(), size, session.integrityKey.Data(),
            session.integrityKey.Length(), account.password.Text(), account.password.Length(),
            trailer.Get()) != 1) {
        return Flaw::Authentication;
    }
    return message;
}

}  // namespace platform::lan
