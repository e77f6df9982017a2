// What `bmci2c doctor` says of the module, its functions and its schema. It knows the module as a
// CIMOM does: by dlopen, the factories' names, and what the providers answer.
#pragma once

#include <cli/doctor/Check.h>
#include <host/Host.h>

namespace cli {

// What to do where module and schema do not fit together.
inline constexpr const char* kReinstall =
    "Install the module, the MOF and the registrations of one version again.";

// The module can be loaded and has every function that a CIMOM looks up; the MOF declares the
// classes that the registrations name, and the registrations name all of the module's classes.
Checks CheckModule(const host::HostFiles& files);

}  // namespace cli
