// The core logger's interface.
#pragma once

#include <string>

namespace NQUVZDX20 {

// Severities of log lines, by their numbers: the smaller, the higher.
enum EZDXLogSeverity {
    kLogFatal = 0,  // errors of the catalog parser, of settings
    kLogWarning = 1,
    kLogError = 2,  // errors of the test
    kLogTrace = 3,
    kLogFinest = 4,
};

class ILogger {
public:
    virtual ~ILogger() = default;
    virtual void Log(EZDXLogSeverity severity, const std::string& text) = 0;
};

}  // namespace NQUVZDX20
