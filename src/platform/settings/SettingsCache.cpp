#include <platform/settings/SettingsCache.h>

#include <utility>

namespace platform {

std::shared_ptr<const Settings> SettingsCache::Get() {
    const std::lock_guard lock(mutex);
    if (settings) return settings;
    auto fresh = std::make_shared<const Settings>(ReadSettingsOrProblem());
    if (fresh->problem.empty()) settings = fresh;
    return fresh;
}

void SettingsCache::Set(Settings chosen) {
    auto fresh = std::make_shared<const Settings>(std::move(chosen));
    const std::lock_guard lock(mutex);
    settings = std::move(fresh);
}

}  // namespace platform
