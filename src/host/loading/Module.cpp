#include <dlfcn.h>
#include <host/loading/Module.h>

#include <filesystem>

namespace host {

namespace {

// Why the last call of the dynamic loader failed. The loader begins with the file's name, which the
// host's own sentence names already.
std::string LoaderReason(const std::string& path) {
    const char* const reason = dlerror();
    const std::string text = reason ? reason : "the reason is unknown";
    const std::string prefix = path + ": ";
    return text.starts_with(prefix) ? text.substr(prefix.size()) : text;
}

}  // namespace

// An absolute path: the loader would look for a bare name in the system's library folders.
Module::Module(const std::string& file) : path(std::filesystem::absolute(file).string()) {
    library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library)
        throw LoadError("The provider module '" + path +
                        "' cannot be loaded: " + LoaderReason(path) + ".");
}

Module::~Module() {
    if (mayUnload) dlclose(library);
}

void* Module::Find(const std::string& function) const { return dlsym(library, function.c_str()); }

}  // namespace host
