// What a run means, and what to do about it.
#pragma once

#include <cli/report/RunReport.h>

#include <string>
#include <vector>

namespace cli {

// The verdict and its reason in one sentence.
std::string Headline(const RunReport& report);

// What to do next, a sentence or two each; at least one.
std::vector<std::string> NextSteps(const RunReport& report);

}  // namespace cli
