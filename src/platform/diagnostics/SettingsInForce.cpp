#include <base/NoDestructor.h>
#include <platform/diagnostics/SettingsInForce.h>
#include <platform/diagnostics/TRootObject.h>

#include <mutex>
#include <string>

namespace platform {

namespace {

struct Reported {
    std::mutex mutex;     // guards `problem`
    std::string problem;  // the last one that was logged
};

bool IsNews(const std::string& problem) {
    static base::NoDestructor<Reported> reported;
    const std::lock_guard lock(reported->mutex);
    if (problem == reported->problem) return false;
    reported->problem = problem;
    return !problem.empty();
}

}  // namespace

std::shared_ptr<const Settings> SettingsInForce() {
    std::shared_ptr<const Settings> settings = CurrentSettings();
    if (IsNews(settings->problem)) {
        NQUVZDX20::TRootObject::GetCoreLogger()->Log(NQUVZDX20::kLogFatal,
                                                     "Settings: " + settings->problem);
    }
    return settings;
}

}  // namespace platform
