// The checks of the providers, on a simulated machine, by `bmci2c doctor`.
#pragma once

#include <cli/doctor/Check.h>
#include <host/Host.h>

namespace cli {

// Every provider answers, and what it shows agrees with the MOF: the properties that it sets, in
// name and type, the keys of its object paths, and the methods that it knows. A run of the test on
// one simulated controller comes first, so that there are records to show; nothing is sent to a
// real one. The module must not have been asked anything in this process.
Checks CheckProviders(const host::HostFiles& files);

}  // namespace cli
