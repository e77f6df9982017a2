#include "ReplacedSettings.h"

namespace platform {

std::shared_ptr<const Settings> CurrentSettings() {
    return std::make_shared<const Settings>(replacedSettings);
}

}  // namespace platform
