#include <platform/settings/SettingsCache.h>

namespace platform {

std::shared_ptr<const Settings> SettingsCache::Get() {
    const std::lock_guard lock(mutex);
    if (settings) return settings;
    auto fresh = std::make_shared<const Settings>(ReadSettingsOrProblem());
    if (fresh->problem.empty()) settings = fresh;
    return fresh;
}

}  // namespace platform
