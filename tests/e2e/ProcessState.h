// What a library must leave as it found it in the process that loads it.
#pragma once

#include <map>
#include <string>

// Locale, file mode mask, working folder, number of threads and what is done at each signal, as
// text by name.
std::map<std::string, std::string> ProcessState();
