#include <cli/Installation.h>
#include <cli/ResultLines.h>
#include <cli/Text.h>
#include <cli/report/NextSteps.h>

#include <algorithm>

namespace cli {

namespace {

using Outcome = ControllerStatus::Outcome;

constexpr std::size_t kMostNamedBusses = 6;

std::string NodeName(std::size_t node) { return "node " + std::to_string(node); }

// "bus 2 of node 1", one for each.
std::vector<std::string> FailedBusses(const RunReport& report) {
    std::vector<std::string> names;
    for (std::size_t node = 0; node < report.controllers.size(); ++node) {
        const std::vector<Bus>& busses = report.controllers[node].busses;
        for (std::size_t bus = 0; bus < busses.size(); ++bus)
            if (busses[bus] == Bus::Failed)
                names.push_back("bus " + std::to_string(bus) + " of " + NodeName(node));
    }
    return names;
}

std::vector<std::string> UnjudgedNodes(const RunReport& report) {
    std::vector<std::string> names;
    for (std::size_t node = 0; node < report.controllers.size(); ++node)
        if (report.controllers[node].outcome != Outcome::Examined) names.push_back(NodeName(node));
    return names;
}

std::size_t GoodBusses(const RunReport& report) {
    std::size_t good = 0;
    for (const ControllerStatus& controller : report.controllers)
        good += static_cast<std::size_t>(
            std::count(controller.busses.begin(), controller.busses.end(), Bus::Good));
    return good;
}

bool IsUnsupportedMachine(const DiagnosticRun& run) {
    return std::any_of(run.records.begin(), run.records.end(), [](const host::Instance& record) {
        const std::vector<ResultLine> lines = FindResultLines(RecordText(record));
        return std::any_of(lines.begin(), lines.end(), [](const ResultLine& line) {
            return line.message == kUnsupportedMachine;
        });
    });
}

std::string HaveOrHas(std::size_t count) { return count == 1 ? "has" : "have"; }

std::string PassedText(const RunReport& report) {
    const std::size_t good = GoodBusses(report);
    if (good == 0) return "no controller reports a failed bus.";
    return "all " + Counted(good, "bus", "busses") + " of " +
           Counted(report.controllers.size(), "controller", "controllers") + " are good.";
}

std::string FailedText(const RunReport& report) {
    const std::vector<std::string> busses = FailedBusses(report);
    if (busses.empty()) return "a bus has failed.";
    const std::string text =
        Counted(busses.size(), "bus", "busses") + " " + HaveOrHas(busses.size()) + " failed";
    return busses.size() > kMostNamedBusses ? text + "." : text + ": " + Listed(busses) + ".";
}

std::string NotCompletedText(const RunReport& report) {
    if (IsUnsupportedMachine(report.run))
        return std::string(report.catalogTrouble.empty()
                               ? "the message catalog does not list this machine"
                               : "there is no usable message catalog") +
               ", so no controller was asked.";
    if (report.machine.controllers.empty()) return "no management controller was found.";
    const std::vector<std::string> nodes = UnjudgedNodes(report);
    if (nodes.empty()) return "not every bus could be examined.";
    return "the busses of " + Listed(nodes) + " could not be examined.";
}

std::string CatalogStep(const RunReport& report) {
    const std::string catalog = CatalogBelow(report.session.settings.root.value);
    if (!report.catalogTrouble.empty())
        return report.catalogTrouble +
               " Mend it or put one there, or name the diagnostics root directory of another "
               "catalog "
               "(--root DIR).";
    if (report.machine.type.empty() && report.machine.biosId.empty())
        return "Neither the machine type nor the BIOS identifier of this machine could be read "
               "from "
               "SMBIOS. Run the command on the server itself, or set 'type' under [machine] in the "
               "settings file.";
    return "The message catalog " + catalog + " lists neither the machine type '" +
           report.machine.type + "' nor the BIOS identifier '" + report.machine.biosId +
           "'. Add the machine to it, or name the diagnostics root directory of another catalog "
           "(--root DIR).";
}

std::string NoControllerStep(const RunReport& report) {
    const auto& controllers = report.session.settings.controllers;
    if (controllers.origin == platform::Origin::Profile)
        return "The profile " + controllers.place +
               " lists no controller: add a [[node]], or run the test without a profile to use "
               "this "
               "machine's IPMI devices.";
    if (controllers.value)
        return "The settings list no controller (" + controllers.place +
               "): add a [[controller]], or remove the key to use this machine's IPMI devices.";
    return "No device /dev/ipmi0, /dev/ipmi1 and so on was found: load the kernel's IPMI driver "
           "(modprobe -a ipmi_si ipmi_devintf), or list the controllers in the settings file, then "
           "run the test again.";
}

bool HasRecommendations(const DiagnosticRun& run) {
    return std::ranges::any_of(run.records, [](const host::Instance& record) {
        return RecordText(record).find("Recommendations:") != std::string::npos;
    });
}

std::string UnjudgedStep(const RunReport& report) {
    const std::vector<std::string> nodes = UnjudgedNodes(report);
    const bool isToldWhy = std::ranges::any_of(
        report.troubles, [](const std::string& trouble) { return trouble.starts_with("SP: "); });
    const std::string where = isToldWhy ? " (see what the library said above)" : "";
    const std::string why =
        " why " + (nodes.empty() ? "a controller" : Listed(nodes)) + " could not be examined";
    return (HasRecommendations(report.run) ? "Follow the recommendations above to find out" + why
                                           : "Find out" + why) +
           where + ", then run the test again.";
}

std::string NotCompletedStep(const RunReport& report) {
    if (IsUnsupportedMachine(report.run)) return CatalogStep(report);
    if (report.machine.controllers.empty()) return NoControllerStep(report);
    return UnjudgedStep(report);
}

}  // namespace

std::string Headline(const RunReport& report) {
    switch (Judge(report.run)) {
        case Verdict::Passed:
            return "PASSED: " + PassedText(report);
        case Verdict::Failed:
            return "FAILED: " + FailedText(report);
        case Verdict::NotCompleted:
            return "NOT COMPLETED: " + NotCompletedText(report);
        default:
            return "NO RESULT: " + report.run.problem;
    }
}

std::vector<std::string> NextSteps(const RunReport& report) {
    switch (Judge(report.run)) {
        case Verdict::Passed:
            return {"Nothing needs to be done."};
        case Verdict::Failed: {
            std::vector<std::string> steps = {
                "Follow the recommendations above for each failed bus, then run the test again."};
            if (!UnjudgedNodes(report).empty()) steps.push_back(UnjudgedStep(report));
            return steps;
        }
        default:
            return {NotCompletedStep(report)};
    }
}

}  // namespace cli
