#include <cli/DiagnosticRun.h>
#include <cli/ResultLines.h>
#include <cli/report/BusStatus.h>

#include <algorithm>

namespace cli {

namespace {

using Outcome = ControllerStatus::Outcome;

constexpr unsigned int kLowestCompletionCode = 0xC0;

void Apply(const ResultLine& line, ControllerStatus& status) {
    if (line.message >= kFirstBus) {
        const std::size_t bus = line.message - kFirstBus;
        status.outcome = Outcome::Examined;
        status.busses.resize(std::max(status.busses.size(), bus + 1), Bus::Good);
        status.busses[bus] = Bus::Failed;
    } else if (line.message == kPassed) {
        status.outcome = Outcome::Examined;
    } else if (line.message == kBadLength) {
        status.outcome = Outcome::BadLength;
    } else if (line.message == kNotDelivered) {
        status.outcome = Outcome::NotDelivered;
    } else if (IsUnjudgedController(line)) {
        status.outcome = Outcome::Refused;
        status.completionCode = kLowestCompletionCode + (line.message - kFirstCompletionCode);
    }
}

}  // namespace

std::vector<ControllerStatus> StatusFromRecords(const std::vector<host::Instance>& records,
                                                std::size_t count) {
    std::vector<ControllerStatus> statuses(count);
    for (const host::Instance& record : records) {
        for (const ResultLine& line : FindResultLines(RecordText(record))) {
            if (line.controller == 0 || line.message == kUnsupportedMachine) continue;
            if (line.controller > statuses.size()) statuses.resize(line.controller);
            Apply(line, statuses[line.controller - 1]);
        }
    }
    return statuses;
}

}  // namespace cli
