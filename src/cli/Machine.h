// What is known of the machine that is tested.
#pragma once

#include <platform/settings/Settings.h>

#include <string>
#include <vector>

namespace cli {

struct Controller {
    std::string way;  // how it is reached: "inband /dev/ipmi0", "lan 192.0.2.1:623", "simulated"
    platform::ControllerSettings settings;
};

struct Machine {
    std::string type;                     // empty when it cannot be read
    std::string biosId;                   // the same
    std::vector<Controller> controllers;  // in node order
    std::vector<std::string> troubles;    // what could not be read, in full sentences
};

// Reads them as the test does.
Machine ReadMachine(const platform::Settings& settings);

}  // namespace cli
