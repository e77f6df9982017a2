// What ends a command early; what() is a full sentence for the user.
#pragma once

#include <host/Status.h>

#include <stdexcept>
#include <string>

namespace cli {

// The command line asks for something that cannot be meant.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// What to do when the module, the schema or the registrations cannot be loaded.
inline constexpr const char* kLoadAdvice =
    " Call bmci2c doctor to see which files are wrong, and what to do.";

// A provider or the host refused a request.
class CallError : public std::runtime_error {
public:
    // `request` says what was asked for: "Enumerating X". Where the class is wrong, what() says
    // where to find the right ones. `advice` stands at the end, with a blank before it.
    CallError(const std::string& request, const host::Status& status,
              const std::string& advice = "");
};

// "CIM status 5, invalid class: There is no class X.": the number, its meaning and the text.
std::string StatusText(const host::Status& status);

}  // namespace cli
