// How a run completes its result.
#pragma once

#include <test/RunResult.h>

#include <string>

// Adds the next controller in node order.
void AddController(RunResult& result, const std::string& address);

// Sets the reason for each controller that was not asked and has no trouble yet.
void ExplainNotAsked(RunResult& result);

// The verdict that the rest of the result stands for.
Verdict Judge(const RunResult& result);
