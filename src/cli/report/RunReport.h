// The result of a run for somebody who does not know how the test is made.
#pragma once

#include <cli/DiagnosticRun.h>
#include <cli/Machine.h>
#include <cli/Session.h>
#include <cli/Terminal.h>
#include <cli/report/BusStatus.h>

#include <string>
#include <vector>

namespace cli {

struct RunReport {
    Session session;
    Machine machine;
    DiagnosticRun run;
    std::vector<ControllerStatus> controllers;  // by node
    std::vector<std::string> troubles;          // what the platform's libraries said
    std::string catalogTrouble;                 // why the catalog was not read to its end
};

// The verdict in one sentence, the machine, its controllers, the map of their busses, what the test
// recorded, the job, and what to do next.
std::string RunText(const RunReport& report, const Terminal& terminal);

}  // namespace cli
