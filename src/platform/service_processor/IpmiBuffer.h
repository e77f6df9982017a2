// The 256-byte buffer that carries a request to SPLibrary::sendIPMICommand and its answer back.
#pragma once

#include <platform/service_processor/IpmiMessage.h>

#include <cstddef>
#include <span>

namespace platform {

// Where an answer begins: the completion code, and behind it the data.
constexpr std::size_t kCompletionCodeIndex = 8;
constexpr std::size_t kAnswerDataIndex = 9;

// The request in the buffer. Throws TransportError when the buffer is too small for an answer, or
// holds no request that can be sent.
IpmiRequest ReadRequest(std::span<const unsigned char> buffer);

// Writes the answer over the buffer: the bytes before the completion code stay, those behind the
// last data byte become zero, data that does not fit is cut. Returns the length to report.
int WriteAnswer(const IpmiAnswer& answer, std::span<unsigned char> buffer);

}  // namespace platform
