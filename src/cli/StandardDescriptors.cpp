#include <cli/ExitCodes.h>
#include <cli/StandardDescriptors.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace cli {

namespace {

constexpr const char* kNullDevice = "/dev/null";

}  // namespace

void OpenStandardDescriptors() {
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (::fcntl(descriptor, F_GETFD) >= 0 || errno != EBADF) continue;
        // The lowest free descriptor is this one, as those below it are open.
        if (::open(kNullDevice, O_RDWR) == descriptor) continue;
        std::perror(kNullDevice);
        std::exit(kCallFailed);
    }
}

}  // namespace cli
