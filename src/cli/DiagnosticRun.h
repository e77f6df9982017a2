// The module's namespace and classes, and the call that runs its test.
#pragma once

#include <host/Host.h>

#include <string>

namespace cli {

inline constexpr const char* kServiceClass = "QUVSG_BMCI2C_DiagnosticService";

// The path of a class in the module's namespace.
host::ObjectPath ClassPath(const std::string& className);

// Invokes RunDiagnostic on the service that the module enumerates. Throws CallError.
host::MethodResult InvokeDiagnostic(host::Host& host);

}  // namespace cli
