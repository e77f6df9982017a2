#include <cimxml/http/Waiting.h>

#include <algorithm>
#include <cerrno>

namespace cimxml {

namespace {

// poll() until the deadline, signals notwithstanding; the number of descriptors that are ready.
int Poll(pollfd* descriptors, nfds_t count, Deadline deadline) {
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        const auto milliseconds =
            std::clamp<std::chrono::milliseconds::rep>(left.count(), 0, 1 << 30);
        const int ready = ::poll(descriptors, count, static_cast<int>(milliseconds));
        if (ready >= 0 || errno != EINTR) return ready;
    }
}

}  // namespace

bool WaitFor(int descriptor, short events, Deadline deadline) {
    pollfd wanted{descriptor, events, 0};
    return Poll(&wanted, 1, deadline) != 0;
}

std::pair<bool, bool> WaitForEither(int first, int second, Deadline deadline) {
    pollfd wanted[] = {{first, POLLIN, 0}, {second, POLLIN, 0}};
    Poll(wanted, 2, deadline);
    return {wanted[0].revents != 0, wanted[1].revents != 0};
}

}  // namespace cimxml
