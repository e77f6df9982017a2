// The system calls of the in-band transport. Tests link functions that simulate the kernel.
#pragma once

#include <poll.h>

namespace platform::device_calls {

// As the calls of the same names: -1 and errno when one fails.
int Open(const char* path, int flags);
int Close(int descriptor);
int Control(int descriptor, unsigned long request, void* argument);  // ioctl
int Poll(pollfd* descriptors, unsigned int count, int milliseconds);

}  // namespace platform::device_calls
