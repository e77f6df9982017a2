// Advice on the outcome of a run.
#pragma once

#include <test/RunResult.h>

#include <string>
#include <vector>

namespace cli {

// What to do next, a sentence or two each; at least one.
std::vector<std::string> NextSteps(const RunResult& result);

}  // namespace cli
