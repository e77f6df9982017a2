#include <base/Names.h>
#include <dlfcn.h>
#include <link.h>
#include <platform/settings/DefaultPaths.h>

#include <system_error>

namespace platform {

namespace {

namespace fs = std::filesystem;

// From PREFIX/lib/ARCHITECTURE/cmpi to PREFIX.
constexpr int kLevelsUp = 3;

// The file that this code was linked into. The dynamic linker gives a program no name of its own.
fs::path OwnFile() {
    Dl_info info{};
    link_map* map = nullptr;
    const void* const ownCode = reinterpret_cast<const void*>(&DefaultSettingsFile);
    if (dladdr1(ownCode, &info, reinterpret_cast<void**>(&map), RTLD_DL_LINKMAP) == 0) return {};
    const bool isProgram = map == nullptr || *map->l_name == '\0';
    std::error_code unknown;
    return fs::canonical(isProgram ? "/proc/self/exe" : map->l_name, unknown);
}

}  // namespace

std::string DefaultSettingsFile() { return "/etc/bmci2c/platform.toml"; }

std::vector<std::string> DefaultRoots() {
    std::vector<std::string> roots;
    if (const auto own = RootAround(OwnFile())) roots.push_back(*own);
    if (roots.empty() || roots.front() != BMCI2C_DATA_ROOT) roots.push_back(BMCI2C_DATA_ROOT);
    return roots;
}

std::optional<std::string> RootAround(const fs::path& file) {
    fs::path folder = file.parent_path();
    for (int level = 0; level < kLevelsUp; ++level) {
        folder = folder.parent_path();
        const fs::path root = folder / "share";
        std::error_code unreadable;
        if (fs::exists(root / base::kCatalogFile, unreadable)) return root.string();
    }
    return std::nullopt;
}

}  // namespace platform
