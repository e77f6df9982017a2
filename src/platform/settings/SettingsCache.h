// The settings as long as a process lives.
#pragma once

#include <platform/settings/Settings.h>

#include <memory>
#include <mutex>

namespace platform {

class SettingsCache {
public:
    // Reads the settings until that succeeds once, then gives the same object again and again;
    // until then gives ReadSettingsOrProblem(). Safe from any thread.
    std::shared_ptr<const Settings> Get();

    // Makes these the settings that Get() gives. They must have been readable.
    void Set(Settings chosen);

private:
    std::mutex mutex;  // guards `settings`
    std::shared_ptr<const Settings> settings;
};

}  // namespace platform
