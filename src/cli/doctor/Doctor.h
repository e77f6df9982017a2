// All that `bmci2c doctor` looks at.
#pragma once

#include <cli/Session.h>
#include <cli/doctor/Check.h>

namespace cli {

// In the order in which one depends on another. While the settings cannot be read, what depends on
// them is not looked at, which is a trouble, too. No controller is asked more than Get Device ID.
Checks Examine(const Session& session);

}  // namespace cli
