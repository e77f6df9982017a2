#include <test/RunJudgement.h>
#include <test/RunTroubles.h>

#include <algorithm>

namespace {

bool HasFailedBus(const ControllerResult& controller) { return !controller.failedBusses.empty(); }

bool IsWhollyGood(const ControllerResult& controller) {
    return controller.outcome == Outcome::Examined && !controller.trouble &&
           !controller.busses.empty() && std::ranges::all_of(controller.busses, [](const Bus& bus) {
               return bus.state == BusState::Good;
           });
}

platform::Trouble WhyNotAsked(const RunResult& result) {
    if (!result.machine.supported) {
        return run_trouble::NotAskedOnThisMachine();
    }
    if (result.interrupted) {
        return run_trouble::Interrupted();
    }
    return result.endOfRecord ? run_trouble::NotAskedAfter(*result.endOfRecord)
                              : run_trouble::NotAskedWithoutFirst();
}

}  // namespace

void AddController(RunResult& result, const std::string& address) {
    ControllerResult& added = result.controllers.emplace_back();
    added.node = static_cast<int>(result.controllers.size()) - 1;
    added.address = address;
}

void ExplainNotAsked(RunResult& result) {
    for (ControllerResult& controller : result.controllers) {
        if (controller.outcome == Outcome::NotAsked && !controller.trouble) {
            controller.trouble = WhyNotAsked(result);
        }
    }
}

Verdict Judge(const RunResult& result) {
    if (result.interrupted) {
        return Verdict::Interrupted;
    }
    if (std::ranges::any_of(result.controllers, HasFailedBus)) {
        return Verdict::Failed;
    }
    const bool passed = result.machine.supported && !result.controllers.empty() &&
                        std::ranges::all_of(result.controllers, IsWhollyGood);
    return passed ? Verdict::Passed : Verdict::NotCompleted;
}
