#include <cli/ExitCodes.h>
#include <cli/Json.h>
#include <cli/commands/Commands.h>
#include <cli/doctor/Doctor.h>

#include <algorithm>
#include <iostream>
#include <memory>

namespace cli {

namespace {

Json ChecksJson(const Checks& checks) {
    Json array = Json::array();
    for (const Check& check : checks)
        array.push_back({{"check", check.name},
                         {"ok", check.ok},
                         {"text", check.text},
                         {"advice", check.advice}});
    return array;
}

int PrintChecks(const Session& session, bool asJson) {
    const Checks checks = Examine(session);
    std::cout << (asJson ? JsonText(ChecksJson(checks)) : ChecksText(checks));
    const bool allOk =
        std::all_of(checks.begin(), checks.end(), [](const Check& check) { return check.ok; });
    return allOk ? kSuccess : kSomethingWrong;
}

}  // namespace

void AddDoctor(CommandSet& commands) {
    const auto asJson = std::make_shared<bool>(false);
    commands
        .Add("doctor",
             "Check all that a test needs, without testing: one line each, and what to do",
             {[asJson](const Session& session) { return PrintChecks(session, *asJson); },
              Command::BrokenSettings::AreShown})
        .Flag("--json", *asJson, "Print an array of JSON objects");
}

}  // namespace cli
