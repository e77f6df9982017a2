// The map of the busses: a row for each controller, a cell for each bus.
#pragma once

#include <cli/Terminal.h>
#include <cli/report/BusStatus.h>

#include <string>
#include <vector>

namespace cli {

// The map with its legend. A failed bus is an X, on a colour terminal a red one; a controller that
// could not be judged has the reason in its row.
std::string BusMapText(const std::vector<ControllerStatus>& controllers, const Terminal& terminal);

// Why a controller was not judged, in a few words; empty when it was.
std::string ReasonText(const ControllerStatus& controller);

}  // namespace cli
