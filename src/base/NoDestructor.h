// An object of static storage duration that is never destroyed: threads of a server, and objects
// that outlive the process's static ones, may still use it while the process ends.
//
//     static NoDestructor<Registry> registry;
//     registry->Add(...);
#pragma once

#include <cstddef>
#include <new>
#include <utility>

namespace base {

template <class T>
class NoDestructor {
public:
    template <class... Arguments>
    explicit NoDestructor(Arguments&&... arguments) {
        ::new (static_cast<void*>(storage)) T(std::forward<Arguments>(arguments)...);
    }
    NoDestructor(const NoDestructor&) = delete;
    NoDestructor& operator=(const NoDestructor&) = delete;

    T& operator*() { return *std::launder(reinterpret_cast<T*>(storage)); }
    T* operator->() { return &**this; }

private:
    alignas(T) std::byte storage[sizeof(T)];
};

}  // namespace base
