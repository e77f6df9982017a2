#include <cli/ResultLines.h>
#include <cli/Text.h>
#include <cli/report/BusMap.h>
#include <cli/report/NextSteps.h>
#include <cli/report/RealMachineCommand.h>
#include <cli/report/RunReport.h>
#include <unistd.h>

#include <cstdint>
#include <utility>

namespace cli {

namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kHanging = 4;
constexpr std::uint64_t kJobCompleted = 7;

std::string Heading(const std::string& text, const Terminal& terminal) {
    return "\n" + terminal.Bold(text) + "\n";
}

std::string Known(const std::string& text) { return text.empty() ? "(unknown)" : text; }

std::string MachineSection(const RunReport& report) {
    std::vector<std::pair<std::string, std::string>> rows = {
        {"Machine type", Known(report.machine.type)},
        {"BIOS identifier", Known(report.machine.biosId)}};
    const std::string& profile = report.session.settings.profileFile.value;
    if (!profile.empty()) rows.emplace_back("Simulated by", profile);
    return Table(rows);
}

std::string ControllerSection(const Machine& machine) {
    if (machine.controllers.empty()) return "  none found\n";
    std::vector<std::pair<std::string, std::string>> rows;
    for (const Controller& controller : machine.controllers)
        rows.emplace_back("node " + std::to_string(rows.size()), controller.way);
    return Table(rows);
}

// The text with every result line on a line of its own.
std::string WithLineBreaks(std::string text) {
    const std::vector<ResultLine> lines = FindResultLines(text);
    for (auto line = lines.rbegin(); line != lines.rend(); ++line)
        if (line->position > 0 && text[line->position - 1] != '\n')
            text.insert(line->position, "\n");
    return text;
}

std::string RecordSection(const DiagnosticRun& run, const Terminal& terminal) {
    if (run.records.empty()) return "  The run kept no record.\n";
    std::string section;
    std::string previous;
    for (const host::Instance& record : run.records) {
        const std::string text = WithLineBreaks(RecordText(record));
        if (!section.empty() && text == previous) {
            section += "  (recorded once more with the same text)\n";
            continue;
        }
        section += Wrap(text, terminal.width, kIndent, kHanging);
        previous = text;
    }
    return section +
           Wrap(
               "(166, then the message number - 901 is bus 0 - and which controller was asked: "
               "001 is node 0.)",
               terminal.width, kIndent);
}

std::string TroubleSection(const std::vector<std::string>& troubles, const Terminal& terminal) {
    std::string section;
    for (const std::string& trouble : troubles)
        section += Wrap(trouble, terminal.width, kIndent, kHanging);
    return section;
}

std::string JobState(const host::Instance& job) {
    const host::Value* const state = host::FindValue(job.properties, "JobState");
    if (state == nullptr) return "(unknown)";
    const auto* number = std::get_if<std::uint64_t>(&state->data);
    if (number != nullptr && *number == kJobCompleted)
        return "completed (so is the job of every run; the verdict stands above)";
    return ValueText(*state);
}

std::string JobSection(const std::optional<host::Instance>& job) {
    if (!job) return "  The run gave no job back.\n";
    const auto time = [&](const char* name) { return TimeText(TextOf(job->properties, name)); };
    return Table({{"InstanceID", TextOf(job->properties, "InstanceID")},
                  {"State", JobState(*job)},
                  {"Submitted", time("TimeSubmitted")},
                  {"Started", time("StartTime")}});
}

std::string NextSection(const RunReport& report, const Terminal& terminal) {
    std::string section;
    for (const std::string& step : NextSteps(report))
        section += Wrap(step, terminal.width, kIndent);
    return section;
}

std::string ColouredHeadline(const RunReport& report, const Terminal& terminal) {
    const std::string headline = Headline(report);
    switch (Judge(report.run)) {
        case Verdict::Passed:
            return terminal.Green(headline);
        case Verdict::Failed:
            return terminal.Red(headline);
        default:
            return terminal.Yellow(headline);
    }
}

}  // namespace

std::string RunText(const RunReport& report, const Terminal& terminal) {
    std::string text = ColouredHeadline(report, terminal) + "\n";
    text += Heading("Machine", terminal) + MachineSection(report);
    text += Heading("Management controllers", terminal) + ControllerSection(report.machine);
    if (!report.controllers.empty())
        text += Heading("I2C busses of each controller", terminal) +
                BusMapText(report.controllers, terminal);
    text += Heading("What the test recorded", terminal) + RecordSection(report.run, terminal);
    if (!report.troubles.empty())
        text += Heading("What the controllers' library said", terminal) +
                TroubleSection(report.troubles, terminal);
    text += Heading("Job", terminal) + JobSection(report.run.job);
    text += Heading("What to do next", terminal) + NextSection(report, terminal);
    if (IsSimulated(report.session.settings))
        text += Heading("The same test on this machine's own controllers", terminal) + "  " +
                RealMachineCommand(report.session, ::geteuid() == 0) + "\n";
    return text;
}

}  // namespace cli
