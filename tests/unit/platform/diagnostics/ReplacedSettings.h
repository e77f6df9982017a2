// Stands in for the settings of the process.
#pragma once

#include <platform/settings/Settings.h>

inline platform::Settings replacedSettings;
