// The log lines of a run besides the test's own, for people and log filters that look for failed
// busses. Each line begins with "Run: ".
#pragma once

#include <test/RunResult.h>

// After the run: a line of severity 2 for each failed bus, a summary (severity 3 when the run
// passed, else 2), and a warning when the machine was simulated.
void WriteRunLog(const RunResult& result) noexcept;

// The summary of a run that an exception ended.
void WriteRunFailure(const char* reason) noexcept;
