#include <cli/report/NextSteps.h>
#include <cli/report/Reasons.h>

#include <algorithm>

namespace cli {

namespace {

std::vector<FailedBus> AllFailedBusses(const RunResult& result) {
    std::vector<FailedBus> all;
    for (const ControllerResult& controller : result.controllers)
        all.insert(all.end(), controller.failedBusses.begin(), controller.failedBusses.end());
    return all;
}

std::string FailedStep(const std::vector<FailedBus>& failedBusses) {
    const bool isRecommended = std::ranges::any_of(failedBusses, [](const FailedBus& failed) {
        return !failed.message.recommendations.empty();
    });
    return isRecommended
               ? "Follow the recommendations above for each failed bus, then run the test again."
               : "Have each failed bus repaired, then run the test again.";
}

}  // namespace

std::vector<std::string> NextSteps(const RunResult& result) {
    std::vector<std::string> steps;
    if (const std::vector<FailedBus> failed = AllFailedBusses(result); !failed.empty())
        steps.push_back(FailedStep(failed));
    for (const std::string& advice : Advice(result)) steps.push_back(advice);
    if (!steps.empty()) return steps;
    return {result.verdict == Verdict::Passed ? "Nothing needs to be done."
                                              : "Run the test again."};
}

}  // namespace cli
