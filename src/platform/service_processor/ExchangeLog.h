// The core logger's lines about exchanges with controllers. Each begins with "SP: ".
#pragma once

#include <platform/service_processor/IpmiMessage.h>
#include <platform/service_processor/TransportError.h>

#include <chrono>
#include <string>

namespace platform {

// What every line about an exchange tells.
struct ExchangeFacts {
    int node;
    std::string way;  // Transport::Describe()
    IpmiRequest request;
    std::chrono::milliseconds elapsed;
};

// Severity 4; severity 2 with the meaning of the completion code when that is not 0, and when the
// answer is too short.
void LogAnswer(const ExchangeFacts& facts, const IpmiAnswer& answer);

// Severity 2.
void LogTrouble(const ExchangeFacts& facts, const TransportError& error);

// Severity 2, for a trouble before there is an exchange.
void LogTrouble(const std::string& text);

}  // namespace platform
