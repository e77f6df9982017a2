#include <platform/settings/Settings.h>
#include <platform/settings/SettingsCache.h>

namespace platform {

std::shared_ptr<const Settings> CurrentSettings() {
    // Never destroyed: a server may still call while the process ends.
    static SettingsCache& cache = *new SettingsCache;
    return cache.Get();
}

}  // namespace platform
