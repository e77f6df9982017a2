#include <cli/Printable.h>
#include <cli/Text.h>
#include <cli/report/BusMap.h>
#include <cli/report/Headline.h>
#include <cli/report/Names.h>
#include <cli/report/NextSteps.h>
#include <cli/report/RealMachineCommand.h>
#include <cli/report/Reasons.h>
#include <cli/report/RunReport.h>
#include <cli/report/Shown.h>
#include <unistd.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace cli {

namespace {

constexpr std::size_t kReportIndent = 2;
constexpr std::size_t kReportHanging = 2;

using Rows = std::vector<std::pair<std::string, std::string>>;

std::string Section(const std::string& heading, const std::string& text, const Terminal& terminal) {
    return text.empty() ? "" : "\n" + terminal.Bold(heading) + "\n" + text;
}

std::string Known(const std::string& text) { return text.empty() ? "(unknown)" : text; }

std::string Wrapped(const std::vector<std::string>& paragraphs, const Terminal& terminal) {
    std::string text;
    for (const std::string& paragraph : paragraphs)
        text += Wrap(paragraph, terminal.width, kReportIndent, kReportHanging);
    return text;
}

// "0.4 s".
std::string DurationText(std::chrono::milliseconds time) {
    const auto tenths = (time.count() + 50) / 100;
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " s";
}

std::string MachineSection(const RunResult& result, const platform::Settings& settings) {
    Rows rows = {{"Machine type", Known(result.machine.type)},
                 {"BIOS identifier", Known(result.machine.biosId)}};
    const std::string& profile = settings.profileFile.value;
    if (!profile.empty()) rows.emplace_back("Simulated by", PrintableLine(profile));
    return Table(rows);
}

std::string ControllerSection(const RunResult& result) {
    Rows rows;
    for (const ControllerResult& controller : result.controllers)
        rows.emplace_back(NodeName(controller.node), controller.address);
    return rows.empty() ? "  none found\n" : Table(rows);
}

std::string MessageText(const ResultMessage& message, const Terminal& terminal) {
    std::string text = Wrap(message.line, terminal.width, kReportIndent, kReportHanging);
    if (message.recommendations.empty()) return text;
    text += "    Recommendations:\n";
    for (const std::string& recommendation : message.recommendations)
        text += Wrap("- " + recommendation, terminal.width, 2 * kReportIndent, kReportHanging);
    return text;
}

std::vector<ResultMessage> MessagesOf(const RunResult& result) {
    std::vector<ResultMessage> messages = result.messages;
    for (const ControllerResult& controller : result.controllers) {
        for (const FailedBus& failed : controller.failedBusses) messages.push_back(failed.message);
        if (controller.message) messages.push_back(*controller.message);
    }
    std::erase_if(messages, [](const ResultMessage& message) { return message.line.empty(); });
    return messages;
}

std::string RecordSection(const RunResult& result, const Terminal& terminal) {
    const std::vector<ResultMessage> messages = MessagesOf(result);
    if (messages.empty()) return "  nothing\n";
    std::string text;
    for (const ResultMessage& message : messages) text += MessageText(message, terminal);
    return text + Wrap(
                      "(166, then the message number - 901 is bus 0 - and which controller was "
                      "asked: 001 is node 0.)",
                      terminal.width, kReportIndent);
}

bool IsWhole(const RunResult& result) {
    return !result.controllers.empty() && std::ranges::all_of(result.controllers, IsFullyExamined);
}

std::string Coloured(const std::string& text, Verdict verdict, const Terminal& terminal) {
    switch (verdict) {
        case Verdict::Passed:
            return terminal.Green(text);
        case Verdict::Failed:
            return terminal.Red(text);
        default:
            return terminal.Yellow(text);
    }
}

std::string RealMachineSection(const Session& session) {
    return "  " + PrintableLine(RealMachineCommand(session, ::geteuid() == 0)) + "\n";
}

}  // namespace

std::string HeadlineText(const RunReport& report, const Terminal& terminal) {
    return Coloured(Headline(report.result), report.result.verdict, terminal) + "\n";
}

std::string RunText(const RunReport& report, const Terminal& terminal) {
    const RunResult result = Shown(report.result);
    const platform::Settings& settings = report.session.settings;
    const auto section = [&](const char* heading, const std::string& text) {
        return Section(heading, text, terminal);
    };
    std::string text = HeadlineText(report, terminal);
    text += "Duration " + DurationText(result.elapsed) + "\n";
    text += section("Machine", MachineSection(result, settings));
    text += section("Management controllers", ControllerSection(result));
    if (!result.controllers.empty())
        text += section("I2C busses of each controller", BusMapText(result.controllers, terminal));
    // After the end of a CIM client's run nothing is recorded.
    const bool goesBeyondRecord = report.askedAll && result.endOfRecord;
    text += section(goesBeyondRecord ? "What the test found" : "What the test recorded",
                    RecordSection(result, terminal));
    text += section(IsWhole(result) ? "Notes" : "What was not examined, and why",
                    Wrapped(Reasons(result, report.askedAll), terminal));
    text += section("What to do next", Wrapped(NextSteps(result), terminal));
    if (result.machine.simulated)
        text += section("The same test on this machine's own controllers",
                        RealMachineSection(report.session));
    return text;
}

}  // namespace cli
