// One question to a controller and its answer. The layout of the bytes that the transport takes and
// returns is known here and nowhere else.
//
//     IpmiExchange exchange(OemCommand::I2cBusStatus, 250);
//     if (exchange.SendTo(ControllerOfNode(0)) && exchange.Response().CompletionCode() == 0) {
//         for (std::uint8_t busses : exchange.Response().Data()) Judge(busses);
//     }
#pragma once

#include <platform/service_processor/SPLibrary.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

enum class OemCommand : std::uint8_t {
    I2cBusStatus = 0x09,
    ControllerGeneration = 0xC1,
};

// The request, as it stands at the start of the transport's buffer.
struct IpmiRequest {
    std::uint8_t header = 0x01;
    std::uint8_t responder = 0x20;        // the controller
    std::uint8_t networkFunction = 0x3A;  // OEM
    std::uint8_t logicalUnit = 0x00;
    OemCommand command = OemCommand::I2cBusStatus;
    std::array<std::uint8_t, 10> data = {};
};
static_assert(sizeof(IpmiRequest) == 15);

// The transport's buffer: holds the request, then the response.
using IpmiBuffer = std::array<std::uint8_t, 256>;

// Reads a response. `length` is what the transport returned and is not trusted: nothing outside the
// buffer is read, and a negative length stands for no bytes at all.
class IpmiResponse {
public:
    IpmiResponse(const IpmiBuffer& responseBuffer, int returnedLength)
        : buffer(responseBuffer), length(returnedLength) {}

    int Length() const { return length; }
    std::uint8_t CompletionCode() const;

    // The data bytes that the length announces.
    std::span<const std::uint8_t> Data() const;

    // Data byte `position` (0 to 246), also where the length announces fewer: then the buffer's.
    std::uint8_t DataByte(std::size_t position) const;

    // The log line that shows length and bytes.
    std::string Dump() const;

private:
    std::span<const std::uint8_t> Bytes() const;

    const IpmiBuffer& buffer;
    int length;
};

class IpmiExchange {
public:
    // `announcedLength` is the length that the transport is given.
    IpmiExchange(OemCommand command, int announcedLength);

    // The log line that shows the request; only before it is sent.
    std::string DumpRequest() const;

    // Sends the request and frees the controller object; false when there is no controller or no
    // answer came.
    bool SendTo(std::unique_ptr<SPLibrary> controller);

    IpmiResponse Response() const { return {buffer, length}; }

private:
    IpmiBuffer buffer{};
    int length;
};

// A new library object for a controller node; null when there is none.
std::unique_ptr<SPLibrary> ControllerOfNode(int node);
