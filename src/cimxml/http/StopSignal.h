// Tells all threads of the server that it is to end.
#pragma once

#include <cimxml/http/Descriptor.h>

#include <chrono>

namespace cimxml {

class StopSignal {
public:
    StopSignal();  // throws std::system_error

    void Set();
    bool IsSet() const;

    // Returns when so much time has passed, or earlier when the server is to end.
    void Sleep(std::chrono::milliseconds time) const;

    // Readable once the signal is set.
    int Readable() const { return event.Get(); }

private:
    Descriptor event;
};

}  // namespace cimxml
