// Limits for clients. docs/serve.md says what happens beyond each.
#pragma once

#include <chrono>
#include <cstddef>

namespace cimxml {

struct Limits {
    std::size_t maxRequestSize = std::size_t{1} << 20;  // bytes of a request's document
    std::size_t maxHeaderSize = std::size_t{16} << 10;  // bytes of a request's line and headers
    std::size_t maxDepth = 64;                          // maximum nesting depth of elements
    std::size_t maxConnections = 64;
    std::size_t maxConnectionsPerAddress = 32;
    std::chrono::seconds firstRequestTime{5};  // to the first request's headers, TLS included
    std::chrono::seconds requestTime{30};      // from a request's first byte to its last
    std::chrono::seconds idleTime{30};         // keep-alive timeout between requests
    std::chrono::seconds runWait{20};          // that a run waits for the one under way
    std::chrono::seconds failurePause{1};      // before a wrong password is answered
};

}  // namespace cimxml
