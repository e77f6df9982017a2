#include <platform/service_processor/lan/HandshakeStep.h>
#include <platform/service_processor/lan/Packet20.h>

namespace platform::lan {

std::optional<Flaw> ReadHandshake(ByteView packet, const HandshakeStep& step,
                                  const HandshakeIds& own, FiidObject& answer) {
    const auto read = ReadPacket20(packet);
    if (const Flaw* flaw = std::get_if<Flaw>(&read)) {
        // The answers of the step before the handshake are of IPMI 1.5.
        const auto size = static_cast<unsigned int>(packet.size());
        return ipmi_is_ipmi_1_5_packet(packet.data(), size) == 1 ? Flaw::Late : *flaw;
    }
    const Packet20& received = std::get<Packet20>(read);
    if (received.type != step.answerType) {
        const bool isEarlier =
            IPMI_PAYLOAD_TYPE_SESSION_SETUP(received.type) && received.type < step.answerType;
        return isEarlier ? Flaw::Late : Flaw::Command;
    }
    if (!answer.SetAll(received.payload)) return Flaw::Unreadable;
    if (fiid_obj_packet_sufficient(answer.Get()) != 1) return Flaw::TooShort;
    if (answer.Number("message_tag") != own.tag) return Flaw::Sequence;
    const bool isRefusal = answer.Number("rmcpplus_status_code") != RMCPPLUS_STATUS_NO_ERRORS;
    if (!isRefusal && !answer.IsComplete()) return Flaw::TooShort;
    const std::uint64_t id = answer.Number("remote_console_session_id");
    const bool mayLackId = isRefusal && id == 0;
    if (id != own.session && !mayLackId) return Flaw::Session;
    return std::nullopt;
}

}  // namespace platform::lan
