// The variables of the settings, unset during a test but for those that it sets.
#pragma once

#include <stdlib.h>

#include <string>

class SettingsEnvironment {
public:
    SettingsEnvironment() { UnsetAll(); }
    SettingsEnvironment(const SettingsEnvironment&) = delete;
    SettingsEnvironment& operator=(const SettingsEnvironment&) = delete;
    ~SettingsEnvironment() { UnsetAll(); }

    void Set(const char* variable, const std::string& value) const {
        ::setenv(variable, value.c_str(), 1);
    }

private:
    static void UnsetAll() {
        for (const char* variable :
             {"BMCI2C_CONFIG", "BMCI2C_ROOT", "BMCI2C_SIMULATE", "BMCI2C_LOG", "BMCI2C_LOG_LEVEL"})
            ::unsetenv(variable);
    }
};
