#include <test/RunResult.h>

#include <algorithm>

namespace {

bool HasFailedBus(const ControllerResult& controller) { return !controller.failedBusses.empty(); }

bool IsWhollyGood(const ControllerResult& controller) {
    return controller.outcome == Outcome::Examined &&
           std::ranges::all_of(controller.busses,
                               [](const Bus& bus) { return bus.state == BusState::Good; });
}

}  // namespace

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
