// The checks of the module, its functions and its schema by `bmci2c doctor`. They see the module as
// a CIMOM does: by dlopen, factory names and the providers' answers.
#pragma once

#include <cli/doctor/Check.h>
#include <host/Host.h>

namespace cli {

// Advice if module and schema do not match.
inline constexpr const char* kReinstall =
    "Install the module, the MOF and the registrations of one version again.";

// The module can be loaded and has every function that a CIMOM looks up; the MOF declares the
// classes that the registrations name, and the registrations name all of the module's classes.
Checks CheckModule(const host::HostFiles& files);

}  // namespace cli
