// The trace lines that providers write around an enumeration.
#pragma once

#include <string_view>

// Writes "+++<provider>::enum_instances()\n".
void TraceEntry(std::string_view provider);

// Writes "---<provider>::enum_instances()<outcome>\n"; the outcome is empty, " OK" or " FAIL".
void TraceExit(std::string_view provider, std::string_view outcome);
