// Where the process-wide core logger is found.
#pragma once

#include <platform/diagnostics/ILogger.h>

namespace NQUVZDX20 {

class TRootObject {
public:
    // The logger that the settings ask for; made at the first call, and never null.
    static ILogger* GetCoreLogger();
};

}  // namespace NQUVZDX20
