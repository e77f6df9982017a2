// A file descriptor that is closed when its owner goes.
#pragma once

#include <unistd.h>

#include <utility>

namespace cimxml {

class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int openDescriptor) : descriptor(openDescriptor) {}
    Descriptor(Descriptor&& other) noexcept : descriptor(std::exchange(other.descriptor, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(descriptor, other.descriptor);
        return *this;
    }
    ~Descriptor() {
        if (IsOpen()) ::close(descriptor);
    }

    int Get() const { return descriptor; }
    bool IsOpen() const { return descriptor >= 0; }

private:
    int descriptor = -1;
};

}  // namespace cimxml
