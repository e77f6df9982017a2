#include <cli/ExitCodes.h>
#include <cli/commands/Commands.h>
#include <cli/doctor/ChecksOutput.h>
#include <cli/doctor/Doctor.h>

#include <iostream>
#include <memory>

namespace cli {

namespace {

int PrintChecks(const Session& session, bool asJson) {
    const Checks checks = Examine(session);
    std::cout << (asJson ? JsonText(ChecksJson(checks))
                         : ChecksText(checks, StandardOutput(session.options.colour)));
    return WorstOf(checks) == Grade::Fail ? kSomethingWrong : kSuccess;
}

}  // namespace

void AddDoctor(CommandSet& commands) {
    const auto asJson = std::make_shared<bool>(false);
    commands
        .Add("doctor", "Check everything that a test needs, without testing",
             {[asJson](const Session& session) { return PrintChecks(session, *asJson); },
              Command::BrokenSettings::AreShown})
        .Flag("--json", *asJson, "Print one JSON object");
}

}  // namespace cli
