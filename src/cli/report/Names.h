// Names of controllers and busses in texts.
#pragma once

#include <test/RunResult.h>

#include <string>
#include <vector>

namespace cli {

// "node 1"; of several "nodes 0 and 2".
std::string NodeName(int node);
std::string NodeNames(const std::vector<int>& nodes);

// "bus 6"; of several "busses 6 and 7".
std::string BusNames(const std::vector<unsigned int>& busses);

// "node 1 (lan 192.0.2.1:623)".
std::string ControllerName(const ControllerResult& controller);

// The text with a capital letter at its beginning.
std::string Capitalized(std::string text);

// The numbers of the busses in a state.
std::vector<unsigned int> BussesIn(const ControllerResult& controller, BusState state);

}  // namespace cli
