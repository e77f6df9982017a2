#include <catalog/IndexError.h>
#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/Installation.h>
#include <cli/Json.h>
#include <cli/commands/Commands.h>
#include <cli/report/RunReport.h>
#include <cli/run/Interruption.h>
#include <cli/run/Progress.h>
#include <cli/run/RunJson.h>
#include <cli/run/TestRun.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

namespace cli {

namespace {

struct RunFlags {
    bool asJson = false;
    bool isQuiet = false;
    bool isVerbose = false;
    bool asksAll = false;
};

constexpr int kVerboseLevel = 3;  // every step of the test

platform::Settings SettingsOf(const Session& session, const RunFlags& flags) {
    platform::Settings settings = session.settings;
    if (!flags.isVerbose) return settings;
    settings.log.value = "stderr";
    settings.logLevel.value = std::max(settings.logLevel.value, kVerboseLevel);
    return settings;
}

Problem ProblemOf(const IndexError& error, const Session& session) {
    return {"The message catalog " + CatalogBelow(session.settings.root.value).string() +
                " is wrong in line " + std::to_string(error.Line()) + ": the index '" +
                error.Index() + "' is not a decimal number.",
            "Fix the message catalog, or name the diagnostics root directory of another one "
            "(--root DIR)."};
}

TestRun RunWatched(const RunFlags& flags, const Interruption& interruption) {
    std::optional<Progress> progress;
    if (!flags.asJson && !flags.isQuiet && CanShowProgress())
        progress.emplace(std::cout, StandardOutput().width);
    return RunTest({.askAll = flags.asksAll,
                    .observer = progress ? &*progress : nullptr,
                    .stop = &interruption.IsRequested()});
}

std::string Output(const Session& session, const RunFlags& flags, const TestRun& run) {
    if (flags.asJson) return JsonText(RunJson(run));
    const RunReport report{.session = session, .result = run.result, .askedAll = flags.asksAll};
    const Terminal terminal = StandardOutput(session.options.colour);
    return flags.isQuiet ? HeadlineText(report, terminal) : RunText(report, terminal);
}

int ExitCodeOf(Verdict verdict, const std::optional<int>& signal) {
    switch (verdict) {
        case Verdict::Passed:
            return kSuccess;
        case Verdict::Failed:
            return kTestFailed;
        case Verdict::Interrupted:
            return kInterrupted + signal.value_or(0);
        default:
            return kTestNotCompleted;
    }
}

int Run(const Session& session, const RunFlags& flags) {
    if (flags.asJson && flags.isQuiet)
        throw UsageError("--json and --quiet cannot be combined.", "Give one of them.");
    platform::UseSettings(SettingsOf(session, flags));
    const Interruption interruption;
    try {
        const TestRun run = RunWatched(flags, interruption);
        std::cout << Output(session, flags, run);
        return ExitCodeOf(run.result.verdict, interruption.Signal());
    } catch (const IndexError& error) {
        throw CommandError(ProblemOf(error, session));
    }
}

}  // namespace

void AddRun(CommandSet& commands) {
    const auto flags = std::make_shared<RunFlags>();
    commands
        .Add("run", "Test the I2C busses of all controllers",
             [flags](const Session& session) { return Run(session, *flags); })
        .Flag("--json", flags->asJson, "Print the result as one JSON object")
        .Flag("--quiet", flags->isQuiet, "Print only the line with the verdict")
        .Flag("--verbose", flags->isVerbose, "Log every step to standard error")
        .Flag("--all", flags->asksAll,
              "Ask every controller, even after one that would end a CIM client's run");
}

}  // namespace cli
