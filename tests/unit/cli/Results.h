// Results of runs, made by hand.
#pragma once

#include <test/RunJudgement.h>
#include <test/RunResult.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace cli {

inline ControllerResult ControllerWith(int node, Outcome outcome) {
    ControllerResult controller;
    controller.node = node;
    controller.address = "inband /dev/ipmi" + std::to_string(node);
    controller.outcome = outcome;
    return controller;
}

// Examined, with the busses in these states, by number.
inline ControllerResult Examined(int node, const std::vector<std::optional<BusState>>& states) {
    ControllerResult controller = ControllerWith(node, Outcome::Examined);
    for (unsigned int bus = 0; bus < states.size(); ++bus) {
        if (!states[bus]) continue;
        controller.busses.push_back({bus, *states[bus]});
        if (states[bus] == BusState::Failed)
            controller.failedBusses.push_back(
                {bus,
                 {"166-" + std::to_string(901 + bus) + "-00" + std::to_string(node + 1) +
                      " FAIL: bus " + std::to_string(bus),
                  {"Check the cables.", "Call support."}}});
    }
    if (controller.failedBusses.empty())
        controller.message = {"166-000-00" + std::to_string(node + 1) + " PASS: all good", {}};
    return controller;
}

inline ControllerResult WithTrouble(ControllerResult controller, const std::string& code,
                                    const std::string& text, const std::string& advice) {
    controller.trouble = {code, text, advice};
    return controller;
}

inline ControllerResult Silent(int node) {
    return WithTrouble(ControllerWith(node, Outcome::NotDelivered), "no_answer",
                       "The controller did not answer.", "Restart it.");
}

inline ControllerResult Short(int node) {
    ControllerResult controller =
        WithTrouble(ControllerWith(node, Outcome::UnusableAnswer), "unusable_answer",
                    "The controller's answer was too short (length 1).", "Update its firmware.");
    controller.length = 1;
    return controller;
}

inline ControllerResult Refusing(int node) {
    ControllerResult controller =
        WithTrouble(ControllerWith(node, Outcome::Refused), "refused",
                    "The controller refused the request with completion code 0xc1.", "");
    controller.completionCode = 0xC1;
    controller.length = 2;
    return controller;
}

inline ControllerResult NotAsked(int node, const std::string& text = "It was not asked.") {
    return WithTrouble(ControllerWith(node, Outcome::NotAsked), "not_asked", text, "");
}

// Of a supported machine.
inline RunResult ResultOf(std::vector<ControllerResult> controllers) {
    RunResult result;
    result.machine = {.type = "7000",
                      .biosId = "P7E100A",
                      .oxc = false,
                      .catalog = "/c.xml",
                      .supported = true,
                      .simulated = false};
    result.controllers = std::move(controllers);
    result.elapsed = std::chrono::milliseconds(420);
    result.verdict = Judge(result);
    return result;
}

inline RunResult Interrupted(RunResult result) {
    result.verdict = Verdict::Interrupted;
    return result;
}

inline constexpr BusState kGood = BusState::Good;
inline constexpr BusState kFailed = BusState::Failed;
inline constexpr BusState kUnjudged = BusState::Unjudged;

}  // namespace cli
