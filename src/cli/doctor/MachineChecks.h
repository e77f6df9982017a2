// The checks of SMBIOS by `bmci2c doctor`.
#pragma once

#include <cli/doctor/Check.h>
#include <platform/settings/Settings.h>

namespace cli {

// The machine type and the BIOS identifier: readable and not empty.
Checks CheckSmbios(const platform::Settings& settings);

}  // namespace cli
