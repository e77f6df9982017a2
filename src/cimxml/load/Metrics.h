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
    Number connectionsRefused = 0;       // answered 503, or closed
    Number connectionsDisplaced = 0;     // closed to make room for a newer one
    std::array<Number, 600> requests{};  // by HTTP status
    Number wrongPasswords = 0;
    Number runs = 0;
    Number runsUnderWay = 0;
    Number runsWaiting = 0;
    Number runsRefused = 0;  // timed out waiting for another one

    void CountRequest(int status);

    // All of them as OpenMetrics text.
    std::string Text(const std::string& version, std::uint64_t logLinesLost) const;
};

}  // namespace cimxml
