#include <cli/DiagnosticRun.h>
#include <cli/Errors.h>
#include <cli/Installation.h>
#include <cli/Json.h>
#include <cli/LogCapture.h>
#include <cli/Machine.h>
#include <cli/commands/Commands.h>
#include <cli/report/CatalogTrouble.h>
#include <cli/report/RunReport.h>

#include <iostream>
#include <memory>
#include <string>

namespace cli {

namespace {

// A module that cannot be loaded is a run without an outcome.
DiagnosticRun LoadAndRun(const Session& session) {
    try {
        const std::unique_ptr<host::Host> host = LoadHost(session);
        return RunDiagnostic(*host);
    } catch (const host::LoadError& error) {
        DiagnosticRun run;
        run.problem = std::string(error.what()) + kLoadAdvice;
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

std::vector<ControllerStatus> Statuses(const std::vector<LogLine>& lines, const DiagnosticRun& run,
                                       std::size_t count) {
    std::vector<ControllerStatus> statuses = StatusFromLog(lines, count);
    return statuses.empty() ? StatusFromRecords(run.records, count) : statuses;
}

std::filesystem::path CatalogOf(const Session& session) {
    return CatalogBelow(session.settings.root.value);
}

int Finish(const Session& session, const DiagnosticRun& run, const LogCapture& capture) {
    if (!run.problem.empty()) {
        std::cerr << "bmci2c: " << run.problem << '\n';
        const std::string place = CatalogPlace(CatalogOf(session), capture.Lines());
        if (!place.empty()) std::cerr << "bmci2c: " << place << '\n';
    }
    return ExitCodeOf(Judge(run));
}

int PrintJson(const Session& session) {
    const LogCapture capture;
    const DiagnosticRun run = LoadAndRun(session);
    std::cout << JsonText(RunJson(run));
    return Finish(session, run, capture);
}

int PrintText(const Session& session) {
    const LogCapture capture;
    RunReport report{.session = session,
                     .machine = ReadMachine(session.settings),
                     .run = LoadAndRun(session),
                     .controllers = {},
                     .troubles = {},
                     .catalogTrouble = {}};
    const std::vector<LogLine> lines = capture.Lines();
    report.troubles = Troubles(lines);
    report.catalogTrouble = CatalogTrouble(CatalogOf(session), lines);
    report.controllers = Statuses(lines, report.run, report.machine.controllers.size());
    if (report.run.problem.empty()) std::cout << RunText(report, StandardOutput());
    return Finish(session, report.run, capture);
}

}  // namespace

void AddRun(CommandSet& commands) {
    const auto asJson = std::make_shared<bool>(false);
    commands
        .Add("run", "Test the I2C busses of all controllers",
             [asJson](const Session& session) {
                 return *asJson ? PrintJson(session) : PrintText(session);
             })
        .Flag("--json", *asJson, "Print the outcome as one JSON object");
}

}  // namespace cli
