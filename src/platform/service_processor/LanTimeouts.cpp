#include <platform/service_processor/LanTimeouts.h>

#include <algorithm>

namespace platform {

namespace {

// In retransmission times: the looks are behind 1, 2, 4 and 6 of them.
struct Shape {
    unsigned int end;
    unsigned int lookBefore;
};

constexpr Shape kFour{.end = 6, .lookBefore = 4};
constexpr Shape kTwo{.end = 2, .lookBefore = 1};

constexpr unsigned int kShortestRetransmission = 2;

// Less than kBeforeOnePacket.
constexpr unsigned int kLateWait = 100;

LanTimeouts Between(const Shape& shape, unsigned int time) {
    const unsigned int retransmission = std::max(time / shape.end, kShortestRetransmission);
    return {.session = (shape.lookBefore + shape.end) * retransmission / 2,
            .retransmission = retransmission};
}

}  // namespace

LanTimeouts TimeoutsFor(std::chrono::milliseconds silence, Packets packets) {
    const auto time = static_cast<unsigned int>(
        std::max<std::chrono::milliseconds::rep>(silence.count(), kShortestRetransmission));
    switch (packets) {
        case Packets::Four:
            return Between(kFour, time);
        case Packets::Two:
            return Between(kTwo, time);
        case Packets::One:
            break;
    }
    return {.session = time + kLateWait, .retransmission = time};
}

}  // namespace platform
