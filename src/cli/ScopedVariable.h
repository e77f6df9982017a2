// A variable of the environment, set while an object lives.
#pragma once

#include <platform/settings/Environment.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace cli {

class ScopedVariable {
public:
    ScopedVariable(std::string variable, const std::string& value)
        : name(std::move(variable)), before(platform::EnvironmentText(name.c_str())) {
        ::setenv(name.c_str(), value.c_str(), 1);
    }
    ~ScopedVariable() {
        if (before) {
            ::setenv(name.c_str(), before->c_str(), 1);
        } else {
            ::unsetenv(name.c_str());
        }
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    const std::string name;
    const std::optional<std::string> before;
};

// Keeps this program's own core logger, which takes its settings at its first line, from the sinks
// that the module is to write to.
inline ScopedVariable SilentLog() { return {"BMCI2C_LOG", "none"}; }

}  // namespace cli
