// Why busses were not examined or not judged, and advice.
#pragma once

#include <test/RunResult.h>

#include <string>
#include <vector>

namespace cli {

// Why a controller was not examined, in a few words: "not asked", "not examined: refused (0xc1)".
std::string ShortReason(const ControllerResult& controller);

// True when each of its busses was judged.
bool IsFullyExamined(const ControllerResult& controller);

// What is wrong with the run as a whole, then what was not examined or not judged and why, in node
// order; a paragraph each. `askedAll`: the run went on where that of a CIM client ends.
std::vector<std::string> Reasons(const RunResult& result, bool askedAll);

// The advice for the troubles, in the same order.
std::vector<std::string> Advice(const RunResult& result);

}  // namespace cli
