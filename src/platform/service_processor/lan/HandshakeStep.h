// A step of the RMCP+ handshake: a message of its own kind, and its answer.
#pragma once

#include <platform/service_processor/UnusableAnswers.h>
#include <platform/service_processor/lan/FiidObject.h>

#include <optional>

namespace platform::lan {

// By FreeIPMI's numbers of payload types, and its templates.
struct HandshakeStep {
    std::uint8_t requestType;
    fiid_field_t* requestLayout;
    std::uint8_t answerType;
    fiid_field_t* answerLayout;
    std::uint8_t number;  // of the step, from 0
};

inline const HandshakeStep kOpenSession{
    IPMI_PAYLOAD_TYPE_RMCPPLUS_OPEN_SESSION_REQUEST, tmpl_rmcpplus_open_session_request,
    IPMI_PAYLOAD_TYPE_RMCPPLUS_OPEN_SESSION_RESPONSE, tmpl_rmcpplus_open_session_response, 0};
inline const HandshakeStep kRakp1{IPMI_PAYLOAD_TYPE_RAKP_MESSAGE_1, tmpl_rmcpplus_rakp_message_1,
                                  IPMI_PAYLOAD_TYPE_RAKP_MESSAGE_2, tmpl_rmcpplus_rakp_message_2,
                                  1};
inline const HandshakeStep kRakp3{IPMI_PAYLOAD_TYPE_RAKP_MESSAGE_3, tmpl_rmcpplus_rakp_message_3,
                                  IPMI_PAYLOAD_TYPE_RAKP_MESSAGE_4, tmpl_rmcpplus_rakp_message_4,
                                  2};

// Identifies a session's own answers.
struct HandshakeIds {
    std::uint8_t tag;
    std::uint32_t session;
};

// Fills `answer`, or says why the packet does not answer the step. An answer that refuses the
// session has no more than its status.
std::optional<Flaw> ReadHandshake(ByteView packet, const HandshakeStep& step,
                                  const HandshakeIds& own, FiidObject& answer);

}  // namespace platform::lan
