// A file descriptor that closes itself.
#pragma once

#include <unistd.h>

namespace NQUVZDX20 {

class Descriptor {
public:
    explicit Descriptor(int openDescriptor) : descriptor(openDescriptor) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (descriptor >= 0) ::close(descriptor);
    }

    // -1 when opening it failed.
    int Get() const { return descriptor; }

private:
    int descriptor;
};

}  // namespace NQUVZDX20
