#include <test/RunResult.h>
#include <test/RunTroubles.h>

#include <algorithm>

namespace {

bool HasFailedBus(const ControllerResult& controller) { return !controller.failedBusses.empty(); }

bool IsWhollyGood(const ControllerResult& controller) {
    return controller.outcome == Outcome::Examined &&
           std::ranges::all_of(controller.busses,
                               [](const Bus& bus) { return bus.state == BusState::Good; });
}

platform::Trouble WhyNotAsked(const RunResult& result) {
    if (!result.machine.supported) {
        return run_trouble::NotAskedOnThisMachine();
    }
    if (result.verdict == Verdict::Interrupted) {
        return run_trouble::Interrupted();
    }
    return result.endOfRecord ? run_trouble::NotAskedAfter(*result.endOfRecord)
                              : run_trouble::NotAskedWithoutFirst();
}

}  // namespace

std::string TextOf(const ResultMessage& message) {
    std::string text = message.line;
    if (!message.recommendations.empty()) {
        text += "\nRecommendations:\n";
    }
    for (const std::string& recommendation : message.recommendations) {
        text += '\n' + recommendation;
    }
    return text;
}

void AddController(RunResult& result, const std::string& address) {
    ControllerResult& added = result.controllers.emplace_back();
    added.node = static_cast<int>(result.controllers.size()) - 1;
    added.address = address;
}

ControllerResult& ControllerOf(RunResult& result, int node) {
    const auto position = static_cast<std::size_t>(node);
    while (result.controllers.size() <= position) {
        AddController(result, "");
    }
    return result.controllers[position];
}

void ExplainNotAsked(RunResult& result) {
    for (ControllerResult& controller : result.controllers) {
        if (controller.outcome == Outcome::NotAsked && !controller.trouble) {
            controller.trouble = WhyNotAsked(result);
        }
    }
}

Verdict Judge(const RunResult& result) {
    if (result.verdict == Verdict::Interrupted) {
        return Verdict::Interrupted;
    }
    if (std::ranges::any_of(result.controllers, HasFailedBus)) {
        return Verdict::Failed;
    }
    const bool passed = result.machine.supported && !result.controllers.empty() &&
                        std::ranges::all_of(result.controllers, IsWhollyGood);
    return passed ? Verdict::Passed : Verdict::NotCompleted;
}

std::string NameOf(Verdict verdict) {
    switch (verdict) {
        case Verdict::Passed:
            return "passed";
        case Verdict::Failed:
            return "failed";
        case Verdict::Interrupted:
            return "interrupted";
        default:
            return "not_completed";
    }
}
