// The command line that runs the same test on this machine's own controllers.
#pragma once

#include <cli/Session.h>

#include <string>

namespace cli {

// `isRoot`: the user may open the controllers' devices without help.
std::string RealMachineCommand(const Session& session, bool isRoot);

}  // namespace cli
