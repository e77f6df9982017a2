// The classes that the module provides, told from those that they derive from.
#pragma once

#include <mof/Model.h>

#include <string_view>
#include <vector>

namespace mof {

inline constexpr std::string_view kModulePrefix = "QUVSG_BMCI2C_";

// In the order of declaration. The schema must outlive them.
std::vector<const Class*> ModuleClasses(const Schema& schema);

// "QUVSG_BMCI2C_Thing_Provider"
std::string ProviderOf(const Class& cls);

}  // namespace mof
