// The module as a server loads it.
#pragma once

#include <string>

class Module {
public:
    // `loadFlags` are those of dlopen. Throws std::runtime_error when the module does not load. It
    // is never unloaded: its interfaces ask for that.
    explicit Module(int loadFlags);

    // The function of that name, or null.
    void* Find(const std::string& function) const;

private:
    void* const library;
};
