#include <platform/service_processor/lan/Format20.h>
#include <platform/service_processor/lan/Packet20.h>

#include <utility>

namespace platform::lan {

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
    fill_rmcpplus_session_hdr(IPMI_PAYLOAD_TYPE_IPMI, IsAuthenticated(), IsEncrypted(), 0, 0,
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
    const auto read = ReadPacket20(packet);
    if (const Flaw* flaw = std::get_if<Flaw>(&read)) return *flaw;
    const Packet20& header = std::get<Packet20>(read);
    if (header.type != IPMI_PAYLOAD_TYPE_IPMI) {
        return IPMI_PAYLOAD_TYPE_SESSION_SETUP(header.type) ? Flaw::Late : Flaw::Unreadable;
    }
    if (header.sessionId != session.ownId) return Flaw::Session;
    if (header.isAuthenticated != IsAuthenticated()) return Flaw::Authentication;
    if (header.isEncrypted != IsEncrypted()) return Flaw::Encryption;
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
    const FiidObject messageHeader(tmpl_lan_msg_hdr_rs);
    const FiidObject body = AnswerBody();
    const FiidObject messageTrailer(tmpl_lan_msg_trlr);
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
    if (IsAuthenticated() && ipmi_rmcpplus_check_packet_session_authentication_code(
                                 by.integrity, packet.data(), size, session.integrityKey.Data(),
                                 session.integrityKey.Length(), account.password.Text(),
                                 account.password.Length(), trailer.Get()) != 1) {
        return Flaw::Authentication;
    }
    return message;
}

}  // namespace platform::lan
