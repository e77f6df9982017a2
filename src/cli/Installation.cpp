#include <base/Names.h>
#include <cli/Installation.h>
#include <platform/settings/Environment.h>

#include <algorithm>
#include <vector>

namespace cli {

namespace {

namespace fs = std::filesystem;

bool Exists(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

// Beside the build folder's programs, and where CIM servers look for providers.
std::vector<fs::path> ModulePlaces(const fs::path& prefix) {
    return {prefix / "lib", prefix / "lib" / BMCI2C_MULTIARCH / "cmpi", prefix / "lib/cmpi",
            prefix / "lib64/cmpi"};
}

fs::path FindModule(const fs::path& prefix) {
    const std::vector<fs::path> places = ModulePlaces(prefix);
    const auto found = std::find_if(places.begin(), places.end(), [](const fs::path& folder) {
        return Exists(folder / base::kModuleFile);
    });
    return (found == places.end() ? places.front() : *found) / base::kModuleFile;
}

}  // namespace

fs::path Executable() { return fs::read_symlink("/proc/self/exe"); }

host::HostFiles FindFiles(const fs::path& binFolder, const std::string& module) {
    const fs::path prefix = binFolder.parent_path();
    const fs::path schema =
        platform::EnvironmentText("BMCI2C_SCHEMA").value_or(prefix / "share/bmci2c/schema");
    return {.module = module.empty() ? FindModule(prefix).string() : fs::absolute(module).string(),
            .schema = schema / "bmci2c.mof",
            .registrations = schema / "bmci2c.reg"};
}

fs::path CatalogBelow(const fs::path& root) { return root / base::kCatalogFile; }

}  // namespace cli
