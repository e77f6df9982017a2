#include <platform/service_processor/LanTimeouts.h>

#include <algorithm>

namespace platform {

std::chrono::milliseconds LanSilence(std::chrono::milliseconds limit) {
    return std::clamp(limit, kLanShortestSilence, kLanLongestSilence);
}

LanTimeouts TimeoutsFor(std::chrono::milliseconds silence) {
    const auto retransmission = static_cast<unsigned int>(silence.count() / 4);
    return {.session = 3 * retransmission, .retransmission = retransmission};
}

}  // namespace platform
