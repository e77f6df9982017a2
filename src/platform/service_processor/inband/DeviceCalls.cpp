#include <fcntl.h>
#include <platform/service_processor/inband/DeviceCalls.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace platform::device_calls {

int Open(const char* path, int flags) { return open(path, flags); }

int Close(int descriptor) { return close(descriptor); }

int Control(int descriptor, unsigned long request, void* argument) {
    return ioctl(descriptor, request, argument);
}

int Poll(pollfd* descriptors, unsigned int count, int milliseconds) {
    return poll(descriptors, count, milliseconds);
}

}  // namespace platform::device_calls
