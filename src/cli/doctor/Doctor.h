// All checks of `bmci2c doctor`.
#pragma once

#include <cli/Session.h>
#include <cli/doctor/Check.h>

namespace cli {

// In order of dependency. If the settings cannot be read, the checks that depend on them fail
// without looking. Controllers get Get Device ID only.
Checks Examine(const Session& session);

}  // namespace cli
