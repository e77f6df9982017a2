// Stands in for the core logger and keeps what it is given.
#pragma once

#include <string>
#include <utility>
#include <vector>

// The lines so far, with their severities.
inline std::vector<std::pair<int, std::string>> recordedLines;
