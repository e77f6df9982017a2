#include <cli/Text.h>
#include <cli/report/Headline.h>
#include <cli/report/Names.h>
#include <cli/report/Reasons.h>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace cli {

namespace {

constexpr std::size_t kMostNamedBusses = 6;

using Clauses = std::vector<std::string>;

std::string WasOrWere(std::size_t count) { return count == 1 ? " was " : " were "; }

std::string PassedClause(const RunResult& result) {
    std::size_t good = 0;
    for (const ControllerResult& controller : result.controllers) good += controller.busses.size();
    if (good == 1) return "the only bus is good";
    return "all " + Counted(good, "bus", "busses") + " of " +
           Counted(result.controllers.size(), "controller", "controllers") + " are good";
}

void AddFailed(const RunResult& result, Clauses& clauses) {
    std::vector<std::string> names;
    for (const ControllerResult& controller : result.controllers)
        for (const FailedBus& failed : controller.failedBusses)
            names.push_back(BusNames({failed.bus}) + " of " + NodeName(controller.node));
    if (names.empty()) return;
    const std::string text =
        Counted(names.size(), "bus", "busses") + (names.size() == 1 ? " has" : " have") + " failed";
    clauses.push_back(names.size() > kMostNamedBusses ? text : text + ": " + Listed(names));
}

void AddUnjudged(const RunResult& result, Clauses& clauses) {
    for (const ControllerResult& controller : result.controllers) {
        const std::vector<unsigned int> busses = BussesIn(controller, BusState::Unjudged);
        if (!busses.empty())
            clauses.push_back(BusNames(busses) + " of " + NodeName(controller.node) +
                              WasOrWere(busses.size()) + "not judged");
    }
}

// Controllers that were not examined, in part or at all, and busses without a judgement.
void AddUnexamined(const RunResult& result, Clauses& clauses) {
    std::vector<int> notAtAll;
    std::vector<int> inPart;
    for (const ControllerResult& controller : result.controllers) {
        if (controller.outcome != Outcome::Examined) {
            notAtAll.push_back(controller.node);
        } else if (!IsFullyExamined(controller) &&
                   BussesIn(controller, BusState::Unjudged).empty()) {
            inPart.push_back(controller.node);
        }
    }
    if (!notAtAll.empty())
        clauses.push_back(NodeNames(notAtAll) + WasOrWere(notAtAll.size()) + "not examined");
    if (!inPart.empty())
        clauses.push_back(NodeNames(inPart) + WasOrWere(inPart.size()) + "not examined in full");
    AddUnjudged(result, clauses);
}

bool WasAnyAsked(const RunResult& result) {
    return std::ranges::any_of(result.controllers, [](const ControllerResult& controller) {
        return controller.outcome != Outcome::NotAsked;
    });
}

void AddSoFar(const RunResult& result, Clauses& clauses) {
    if (!WasAnyAsked(result)) {
        clauses.emplace_back("no controller was asked");
        return;
    }
    AddFailed(result, clauses);
    if (clauses.empty()) clauses.emplace_back("no bus has failed so far");
    AddUnexamined(result, clauses);
}

bool HasTrouble(const RunResult& result, std::string_view codePrefix) {
    return std::ranges::any_of(result.troubles, [&](const platform::Trouble& trouble) {
        return trouble.code.starts_with(codePrefix);
    });
}

std::string UnsupportedClause(const RunResult& result) {
    const char* reason = "the message catalog does not list this machine";
    if (HasTrouble(result, "machine_unknown")) reason = "the machine type is not known";
    if (HasTrouble(result, "catalog_")) reason = "there is no usable message catalog";
    return std::string(reason) + ", so no controller was asked";
}

void AddIncomplete(const RunResult& result, Clauses& clauses) {
    if (!result.machine.supported) {
        clauses.push_back(UnsupportedClause(result));
        return;
    }
    if (result.controllers.empty()) clauses.emplace_back("no management controller was found");
    AddUnexamined(result, clauses);
}

Clauses ClausesOf(const RunResult& result) {
    Clauses clauses;
    switch (result.verdict) {
        case Verdict::Passed:
            clauses.push_back(PassedClause(result));
            break;
        case Verdict::Failed:
            AddFailed(result, clauses);
            AddUnexamined(result, clauses);
            break;
        case Verdict::NotCompleted:
            AddIncomplete(result, clauses);
            break;
        case Verdict::Interrupted:
            AddSoFar(result, clauses);
            break;
    }
    return clauses;
}

std::string Word(Verdict verdict) {
    switch (verdict) {
        case Verdict::Passed:
            return "PASSED";
        case Verdict::Failed:
            return "FAILED";
        case Verdict::Interrupted:
            return "INTERRUPTED";
        default:
            return "NOT COMPLETED";
    }
}

}  // namespace

std::string Headline(const RunResult& result) {
    std::string sentences;
    for (const std::string& clause : ClausesOf(result))
        sentences += (sentences.empty() ? clause : " " + Capitalized(clause)) + ".";
    return Word(result.verdict) + (result.machine.simulated ? " (simulated machine): " : ": ") +
           sentences;
}

}  // namespace cli
