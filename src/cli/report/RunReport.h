// The result of a run for users without knowledge of the test's internals.
#pragma once

#include <cli/Session.h>
#include <cli/Terminal.h>
#include <test/RunResult.h>

#include <string>

namespace cli {

struct RunReport {
    Session session;
    RunResult result;
    bool askedAll = false;  // the run went on where that of a CIM client ends
};

// The verdict in one line, in its colour.
std::string HeadlineText(const RunReport& report, const Terminal& terminal);

// The same, and the machine, its controllers, the map of their busses, what the test recorded, what
// it did not examine, and what to do next.
std::string RunText(const RunReport& report, const Terminal& terminal);

}  // namespace cli
