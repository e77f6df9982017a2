// A step of the RMCP+ log-in: a message of its own kind, and its answer.
#pragma once

#include <platform/service_processor/lan/FiidObject.h>
#include <platform/service_processor/UnusableAnswers.h>

#include <optional>

namespace platform::lan {

// By FreeIPMI's numbers of payload types, and its template of the answer.
struct SetupStep {
    std::uint8_t requestType;
    std::uint8_t answerType;
    fiid_field_t* answerLayout;
    std::uint8_t tag;
};

// Throws LanFailure.
Bytes SetupPacket(std::uint8_t payloadType, const FiidObject& message);

// Fills `answer`, or says why the packet does not answer the step of the session with this ID. An
// answer that refuses the log-in has no more than its status.
std::optional<Flaw> ReadSetup(ByteView packet, const SetupStep& step, std::uint32_t ownId,
                              FiidObject& answer);

}  // namespace platform::lan
