#include <platform/service_processor/Clock.h>

namespace platform {

Time Now() { return std::chrono::steady_clock::now(); }

}  // namespace platform
