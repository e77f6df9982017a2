// A simulated machine instead of this one, for a module that is to be asked without a real
// controller, and without the catalog and the settings, which may be what is wrong.
#pragma once

#include <cli/ScopedVariable.h>

#include <filesystem>
#include <string>

namespace cli {

// A folder of its own with a catalog and a profile; goes away with its object.
class MachineFolder {
public:
    // Throws std::system_error when there is no place for it.
    MachineFolder();
    ~MachineFolder();
    MachineFolder(const MachineFolder&) = delete;
    MachineFolder& operator=(const MachineFolder&) = delete;

    std::string Path() const { return path; }
    std::string Profile() const { return path / "profile.toml"; }

private:
    void Write(const std::filesystem::path& name, const std::string& text) const;

    std::filesystem::path path;
};

// As long as an object lives, a module that reads its settings finds one healthy controller, in a
// machine that the catalog knows, and logs nothing.
class SimulatedMachine {
private:
    const MachineFolder folder;
    const ScopedVariable settings{"BMCI2C_CONFIG", "/dev/null"};
    const ScopedVariable root{"BMCI2C_ROOT", folder.Path()};
    const ScopedVariable profile{"BMCI2C_SIMULATE", folder.Profile()};
    const ScopedVariable silence = SilentLog();
};

}  // namespace cli
