#include "Module.h"

#include <dlfcn.h>

#include <cstdlib>
#include <stdexcept>

namespace {

// The module reads its settings once in a process, so all servers share them.
void SimulateTwoControllersOfWhichOneHasAFailedBus() {
    constexpr int kOverwrite = 1;
    setenv("BMCI2C_ROOT", BMCI2C_DATA, kOverwrite);
    setenv("BMCI2C_SIMULATE", BMCI2C_DATA "/profiles/two-nodes-one-failed.toml", kOverwrite);
    setenv("BMCI2C_LOG", "none", kOverwrite);
}

void* Load(int flags) {
    SimulateTwoControllersOfWhichOneHasAFailedBus();
    void* const library = dlopen(BMCI2C_MODULE, flags);
    if (library == nullptr) throw std::runtime_error(dlerror());
    return library;
}

}  // namespace

Module::Module(int loadFlags) : library(Load(loadFlags)) {}

void* Module::Find(const std::string& function) const { return dlsym(library, function.c_str()); }
