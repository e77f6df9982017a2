#include <mof/generator/ModuleClasses.h>

namespace mof {

std::vector<const Class*> ModuleClasses(const Schema& schema) {
    std::vector<const Class*> classes;
    for (const Class& cls : schema.classes) {
        if (cls.name.starts_with(kModulePrefix)) {
            classes.push_back(&cls);
        }
    }
    return classes;
}

std::string ProviderOf(const Class& cls) { return cls.name + "_Provider"; }

}  // namespace mof
