// Keeps the sequence of rand() as the process had it.
//
// FreeIPMI seeds rand() whenever it opens a session. While an object of this class lives, rand()
// and srand() of the whole process work on a state of their own; when the last object ends, the
// sequence goes on where it was. Another thread that calls rand() in between gets numbers of the
// other sequence (and one that calls srand() in between has no lasting effect): the C library has
// one state for all threads.
#pragma once

namespace platform {

class HostRandomNumbers {
public:
    HostRandomNumbers();
    HostRandomNumbers(const HostRandomNumbers&) = delete;
    HostRandomNumbers& operator=(const HostRandomNumbers&) = delete;
    ~HostRandomNumbers();
};

}  // namespace platform
