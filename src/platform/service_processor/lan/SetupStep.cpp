#include <platform/service_processor/lan/LanMessage.h>
#include <platform/service_processor/lan/SetupStep.h>

#include <utility>

namespace platform::lan {

Bytes SetupPacket(std::uint8_t payloadType, const FiidObject& message) {
    const FiidObject rmcp(tmpl_rmcp_hdr);
    const FiidObject header(tmpl_rmcpplus_session_hdr);
    const FiidObject trailer(tmpl_rmcpplus_session_trlr);
    fill_rmcp_hdr_ipmi(rmcp.Get());
    fill_rmcpplus_session_hdr(payloadType, IPMI_PAYLOAD_FLAG_UNAUTHENTICATED,
                              IPMI_PAYLOAD_FLAG_UNENCRYPTED, 0, 0, 0, 0, header.Get());
    fill_rmcpplus_session_trlr(trailer.Get());
    Bytes packet(kLongestPacket);
    const int length = assemble_ipmi_rmcpplus_pkt(
        IPMI_AUTHENTICATION_ALGORITHM_RAKP_NONE, IPMI_INTEGRITY_ALGORITHM_NONE,
        IPMI_CONFIDENTIALITY_ALGORITHM_NONE, nullptr, 0, nullptr, 0, nullptr, 0, rmcp.Get(),
        header.Get(), nullptr, message.Get(), trailer.Get(), packet.data(),
        static_cast<unsigned int>(packet.size()), IPMI_INTERFACE_FLAGS_DEFAULT);
    return Assembled(std::move(packet), length);
}

// Why the packet does not answer the step; fills `answer` when it does.
std::optional<Flaw> ReadSetup(ByteView packet, const SetupStep& step, std::uint32_t ownId,
                              FiidObject& answer) {
    const auto size = static_cast<unsigned int>(packet.size());
    std::uint8_t type = 0;
    if (ipmi_is_ipmi_2_0_packet(packet.data(), size) != 1 ||
        ipmi_rmcpplus_calculate_payload_type(packet.data(), size, &type) < 0) {
        // The answers of the step before the log-in are of IPMI 1.5.
        return ipmi_is_ipmi_1_5_packet(packet.data(), size) == 1 ? Flaw::Late : Flaw::Unreadable;
    }
    if (type != step.answerType) {
        const bool isEarlier = IPMI_PAYLOAD_TYPE_SESSION_SETUP(type) && type < step.answerType;
        return isEarlier ? Flaw::Late : Flaw::Command;
    }
    const FiidObject rmcp(tmpl_rmcp_hdr);
    const FiidObject header(tmpl_rmcpplus_session_hdr);
    const FiidObject payload(tmpl_rmcpplus_payload);
    const FiidObject trailer(tmpl_rmcpplus_session_trlr);
    const FiidObject messageHeader = AnswerHeader();
    const FiidObject messageTrailer = AnswerTrailer();
    fiid_obj_clear(answer.Get());
    if (unassemble_ipmi_rmcpplus_pkt(
            IPMI_AUTHENTICATION_ALGORITHM_RAKP_NONE, IPMI_INTEGRITY_ALGORITHM_NONE,
            IPMI_CONFIDENTIALITY_ALGORITHM_NONE, nullptr, 0, nullptr, 0, packet.data(), size,
            rmcp.Get(), header.Get(), payload.Get(), messageHeader.Get(), answer.Get(),
            messageTrailer.Get(), trailer.Get(), IPMI_INTERFACE_FLAGS_NO_LEGAL_CHECK) < 0) {
        return Flaw::Unreadable;
    }
    if (fiid_obj_packet_sufficient(answer.Get()) != 1) return Flaw::TooShort;
    if (answer.Number("message_tag") != step.tag) return Flaw::Sequence;
    const bool isRefusal = answer.Number("rmcpplus_status_code") != RMCPPLUS_STATUS_NO_ERRORS;
    if (!isRefusal && !answer.IsComplete()) return Flaw::TooShort;
    const std::uint64_t id = answer.Number("remote_console_session_id");
    const bool mayLackId = isRefusal && id == 0;
    if (id != ownId && !mayLackId) return Flaw::Session;
    return std::nullopt;
}

}  // namespace platform::lan
