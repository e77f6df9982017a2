// The outcome of a run in one line.
#pragma once

#include <test/RunResult.h>

#include <string>

namespace cli {

// The verdict and its reasons: "FAILED: 1 bus has failed: bus 2 of node 1. Node 0 was not
// examined."; of a simulated machine "FAILED (simulated machine): ...".
std::string Headline(const RunResult& result);

}  // namespace cli
