// Log lines of the test, without a prefix of its own.
#pragma once

#include <platform/diagnostics/ILogger.h>

#include <string>

// Writes one line to the process-wide core logger.
void WriteCoreLog(NQUVZDX20::EZDXLogSeverity severity, const std::string& text);
