// The 256-byte buffer that carries a request to SPLibrary::sendIPMICommand and its answer back. Its
// layout is known here and nowhere else:
//
//     request   0 header (0x01), 1 responder address (0x20), 2 network function, 3 logical unit,
//               4 command, 5 to 14 request data
//     answer    0 to 7 as in the request, 8 completion code, data from 9 on, zero after them; data
//               that does not fit is cut
//
//     IpmiBuffer buffer = RequestBuffer(kI2cBusStatus);
//     ...
//     const IpmiResponse response(buffer, length);
//     if (response.CompletionCode() == kCompleted) Judge(response.Data());
#pragma once

#include <platform/service_processor/IpmiMessage.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace platform {

using IpmiBuffer = std::array<unsigned char, 256>;

// How many bytes a request takes at the buffer's start.
constexpr std::size_t kRequestSize = 15;

// The request for an OEM command without data, in a buffer that is zero behind it.
IpmiBuffer RequestBuffer(std::uint8_t oemCommand);

// The request in the buffer. Throws TransportError when the buffer is too small for an answer, or
// holds no request that can be sent.
IpmiRequest ReadRequest(std::span<const unsigned char> buffer);

// Writes the answer over the buffer. Returns the length to report.
int WriteAnswer(const IpmiAnswer& answer, std::span<unsigned char> buffer);

// Reads an answer. `length` is what the transport returned and is not trusted: nothing outside the
// buffer is read, and a negative length stands for no bytes at all.
class IpmiResponse {
public:
    IpmiResponse(const IpmiBuffer& responseBuffer, int returnedLength)
        : buffer(responseBuffer), length(returnedLength) {}
    IpmiResponse(IpmiBuffer&& gone, int length) = delete;

    int Length() const { return length; }
    std::uint8_t CompletionCode() const;

    // True when the length announces no more than a completion code.
    bool IsTooShort() const { return length <= 1; }

    // True when the length announces data that the buffer did not take.
    bool IsCut() const;

    // Everything up to the byte behind the last one that the length announces: the length counts
    // the completion code as well, and the test looks at one byte for each of the length.
    std::span<const std::uint8_t> Bytes() const;

    // Those of them behind the completion code.
    std::span<const std::uint8_t> Data() const;

    // Of these the controller's own, without the byte behind the last one unless that is not zero.
    std::span<const std::uint8_t> ControllerData() const;

    // Data byte `position` (0 to 246), also where the length announces fewer: then the buffer's.
    std::uint8_t DataByte(std::size_t position) const;

private:
    const IpmiBuffer& buffer;
    int length;
};

}  // namespace platform
