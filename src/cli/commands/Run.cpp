#include <cli/DiagnosticRun.h>
#include <cli/Json.h>
#include <cli/LogCapture.h>
#include <cli/Machine.h>
#include <cli/commands/Commands.h>
#include <cli/report/RunReport.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

namespace cli {

namespace {

// A module that cannot be loaded is a run without an outcome.
DiagnosticRun LoadAndRun(const Session& session) {
    try {
        const std::unique_ptr<host::Host> host = LoadHost(session);
        return RunDiagnostic(*host);
    } catch (const host::LoadError& error) {
        DiagnosticRun run;
        run.problem = error.what();
        return run;
    }
}

Json RunJson(const DiagnosticRun& run) {
    Json records = Json::array();
    for (const host::Instance& record : run.records) records.push_back(ToJson(record.properties));
    return {{"status", run.status ? Json(static_cast<int>(run.status->code)) : Json()},
            {"return_value", ToJson(run.returnValue)},
            {"job", run.job ? ToJson(run.job->properties) : Json()},
            {"records", std::move(records)},
            {"verdict", VerdictText(Judge(run))}};
}

std::vector<ControllerStatus> Statuses(const LogCapture& capture, const DiagnosticRun& run,
                                       std::size_t count) {
    std::vector<ControllerStatus> statuses = StatusFromLog(capture.Lines(), count);
    return statuses.empty() ? StatusFromRecords(run.records, count) : statuses;
}

int Finish(const DiagnosticRun& run) {
    if (!run.problem.empty()) std::cerr << "bmci2c: " << run.problem << '\n';
    return ExitCodeOf(Judge(run));
}

int PrintJson(const Session& session) {
    const DiagnosticRun run = LoadAndRun(session);
    std::cout << JsonText(RunJson(run));
    return Finish(run);
}

int PrintText(const Session& session) {
    const LogCapture capture;
    RunReport report{.session = session,
                     .machine = ReadMachine(session.settings),
                     .run = LoadAndRun(session),
                     .controllers = {},
                     .troubles = Troubles(capture.Lines())};
    report.controllers = Statuses(capture, report.run, report.machine.controllers.size());
    if (report.run.problem.empty()) std::cout << RunText(report, StandardOutput());
    return Finish(report.run);
}

}  // namespace

void AddRun(CLI::App& app, Command& chosen) {
    CLI::App* const command = app.add_subcommand("run", "Test the I2C busses of all controllers");
    const auto asJson = std::make_shared<bool>(false);
    command->add_flag("--json", *asJson, "Print the outcome as one JSON object");
    command->callback([&chosen, asJson] {
        chosen = [asJson](const Session& session) {
            return *asJson ? PrintJson(session) : PrintText(session);
        };
    });
}

}  // namespace cli
