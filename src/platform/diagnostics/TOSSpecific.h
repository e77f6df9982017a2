// What the operating system and the installation say about this machine.
#pragma once

#include <string>

namespace NQUVZDX20 {

class TOSSpecific {
public:
    // The machine type (SMBIOS product name) and the BIOS identifier (SMBIOS BIOS version), or what
    // the settings put in their place; empty when they cannot be read.
    static std::string GetMachineTypeFromID();
    static std::string GetBiosID();

    // Why the machine type or the BIOS identifier cannot be read, in full sentences; empty when
    // both can. Writes no log line.
    static std::string SmbiosProblem();

    // The root directory of the diagnostics installation, without a slash at its end.
    static std::string GetZDXRootPath();

    // The size of a file in bytes; 0 when there is none.
    static unsigned long GetFileSize(std::string path);

    // True when recommendations are to be those of an OEM build.
    static bool isOEMBuild();
};

}  // namespace NQUVZDX20
