// What the server counts about itself.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string>

namespace cimxml {

// Each may be changed and read by any thread.
struct Metrics {
    using Number = std::atomic<std::uint64_t>;

    Number connections = 0;  // open at the moment
    Number connectionsAccepted = 0;
    Number connectionsRefused = 0;       // told to come back later, or just closed
    Number connectionsDisplaced = 0;     // closed for the sake of a newer one
    std::array<Number, 600> requests{};  // by HTTP status
    Number wrongPasswords = 0;
    Number runs = 0;
    Number runsUnderWay = 0;
    Number runsWaiting = 0;
    Number runsRefused = 0;  // another one was under way for too long

    void CountRequest(int status);

    // All of them as OpenMetrics text.
    std::string Text(const std::string& version, std::uint64_t logLinesLost) const;
};

}  // namespace cimxml
