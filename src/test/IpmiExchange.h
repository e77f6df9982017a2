// One request to a controller and its answer.
//
//     IpmiExchange exchange(platform::kI2cBusStatus, 250);
//     if (exchange.SendTo(ControllerOfNode(0, machine), share) &&
//     exchange.Response().CompletionCode() == 0) {
//         for (std::uint8_t busses : exchange.Response().Data()) Judge(busses);
//     }
#pragma once

#include <platform/service_processor/IpmiBuffer.h>
#include <platform/service_processor/SPLibrary.h>

#include <cstdint>
#include <memory>
#include <string>

class IpmiExchange {
public:
    // `announcedLength` is the length that the transport is given.
    IpmiExchange(std::uint8_t oemCommand, int announcedLength);

    // The log line that shows the request; only before it is sent.
    std::string DumpRequest() const;

    // Sends the request in the controller's share and frees the controller object; false when there
    // is no controller or no answer came.
    bool SendTo(std::unique_ptr<SPLibrary> controller, const SPShare& share);

    platform::IpmiResponse Response() const& { return {buffer, length}; }
    platform::IpmiResponse Response() const&& = delete;

    // The transport's report on the last request; empty before the first, and without a controller.
    const SPExchange& Facts() const { return facts; }

private:
    platform::IpmiBuffer buffer;
    int length;
    SPExchange facts;
};

// The log line that shows length and bytes of a response.
std::string Dump(const platform::IpmiResponse& response);

// A new library object for a controller node; null when there is none.
std::unique_ptr<SPLibrary> ControllerOfNode(int node, const SPMachine& machine);
