// The SMBIOS texts of this machine, unless the settings replace them.
#pragma once

#include <platform/settings/Settings.h>

#include <string>

namespace platform {

struct SmbiosText {
    std::string text;     // empty when it cannot be read
    std::string problem;  // full sentences; else empty
};

// The machine type and the BIOS identifier: the text that the settings put in their place, or else
// that of their source, without white space at its end, cut by its pattern. A text in which the
// pattern is not found stays whole and is a problem.
SmbiosText ReadMachineType(const Settings& settings);
SmbiosText ReadBiosId(const Settings& settings);

}  // namespace platform
