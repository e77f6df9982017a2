// An IPMI message as it travels in a packet.
#pragma once

#include <platform/service_processor/IpmiMessage.h>
#include <platform/service_processor/UnusableAnswers.h>
#include <platform/service_processor/lan/FiidObject.h>

#include <optional>
#include <variant>

namespace platform::lan {

struct LanMessage {
    IpmiRequest request;
    std::uint8_t sequence;  // of the requester, 6 bits
};

// The parts that FreeIPMI makes a packet of.
FiidObject MessageHeader(const LanMessage& message);
FiidObject MessageBody(const LanMessage& message);

// The packet of which FreeIPMI has written `length` bytes. Throws LanFailure when it is negative.
Bytes Assembled(Bytes packet, int length);

// With a completion code, and no data.
constexpr std::size_t kShortestAnswer = 8;

// Reads the answer to the message from the payload of a packet, or says why it is none.
std::optional<Flaw> ReadAnswer(ByteView payload, const LanMessage& message, bool checksChecksums,
                               IpmiAnswer& answer);

// Into which FreeIPMI reads the message of an answer.
FiidObject AnswerBody();

}  // namespace platform::lan
