#include <platform/settings/Settings.h>
#include <platform/settings/SettingsCache.h>

#include <utility>

namespace platform {

namespace {

SettingsCache& OfThisProcess() {
    // Never destroyed: a server may still call while the process ends.
    static SettingsCache& cache = *new SettingsCache;
    return cache;
}

}  // namespace

std::shared_ptr<const Settings> CurrentSettings() { return OfThisProcess().Get(); }

void UseSettings(Settings settings) { OfThisProcess().Set(std::move(settings)); }

}  // namespace platform
