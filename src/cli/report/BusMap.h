// The I2C busses of all controllers as a map of characters.
#pragma once

#include <cli/Terminal.h>
#include <test/RunResult.h>

#include <string>
#include <vector>

namespace cli {

// A row for each controller and a column for each bus, in blocks that fit into the terminal's
// width; below them a legend of the marks used. A controller that was not examined has the reason
// instead.
std::string BusMapText(const std::vector<ControllerResult>& controllers, const Terminal& terminal);

}  // namespace cli
