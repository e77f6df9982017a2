// A result made safe for a terminal.
#pragma once

#include <test/RunResult.h>

namespace cli {

// The result with every text of it printable: those of SMBIOS, of the catalog and of controllers
// may hold anything.
RunResult Shown(RunResult result);

}  // namespace cli
