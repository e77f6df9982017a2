// The library objects that were handed out and not deleted yet.
//
// The diagnostic test never releases the object that it obtains when it is made. The registry keeps
// such objects reachable until the process ends, so that leak checkers stay clean, and counts them.
#pragma once

#include <cstddef>

class SPLibrary;

namespace platform {

class LiveObjects {
public:
    static void Add(const SPLibrary* object);
    static void Remove(const SPLibrary* object);
    static std::size_t Count();
};

}  // namespace platform
