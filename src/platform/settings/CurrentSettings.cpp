#include <base/NoDestructor.h>
#include <platform/settings/Settings.h>
#include <platform/settings/SettingsCache.h>

#include <utility>

namespace platform {

namespace {

SettingsCache& OfThisProcess() {
    static base::NoDestructor<SettingsCache> cache;
    return *cache;
}

}  // namespace

std::shared_ptr<const Settings> CurrentSettings() { return OfThisProcess().Get(); }

void UseSettings(Settings settings) { OfThisProcess().Set(std::move(settings)); }

}  // namespace platform
