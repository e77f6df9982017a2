// The I2C busses of all controllers as a map of characters.
#pragma once

#include <cli/Terminal.h>
#include <test/RunResult.h>

#include <string>
#include <vector>

namespace cli {

// A row for each controller and a column for each bus, in blocks that fit into the terminal's
// width; below them what the marks mean that occur. A controller that was not examined has its
// reason instead.
std::string BusMapText(const std::vector<ControllerResult>& controllers, const Terminal& terminal);

}  // namespace cli
