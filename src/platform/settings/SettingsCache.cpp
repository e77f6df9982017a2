#include <platform/settings/SettingsCache.h>
#include <platform/settings/SettingsError.h>

namespace platform {

std::shared_ptr<const Settings> SettingsCache::Get() {
    const std::lock_guard lock(mutex);
    if (settings) return settings;
    try {
        settings = std::make_shared<const Settings>(ReadSettings());
    } catch (const SettingsError& error) {
        return std::make_shared<const Settings>(SettingsInTrouble(error.what()));
    }
    return settings;
}

}  // namespace platform
