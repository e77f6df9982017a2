// A provider module: a shared library with factories, loaded as a CIMOM loads it.
#pragma once

#include <cmpi/cmpi.h>
#include <host/loading/LoadError.h>

#include <string>

namespace host {

class Module {
public:
    // Loads the file. Throws LoadError.
    explicit Module(const std::string& path);

    // Unloads it, unless KeepLoaded was called.
    ~Module();

    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    const std::string& Path() const { return path; }

    // The function of that name, or null.
    void* Find(const std::string& function) const;

    // Keeps the module in the process from now on, because one of its interfaces asks for it.
    void KeepLoaded() { mayUnload = false; }

private:
    const std::string path;
    void* library = nullptr;
    bool mayUnload = true;
};

}  // namespace host
