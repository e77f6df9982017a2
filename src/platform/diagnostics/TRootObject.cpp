#include <platform/diagnostics/CoreLogger.h>
#include <platform/diagnostics/TRootObject.h>

namespace NQUVZDX20 {

ILogger* TRootObject::GetCoreLogger() {
    // Never destroyed: a server may still log while the process ends.
    static CoreLogger& logger = *new CoreLogger;
    return &logger;
}

}  // namespace NQUVZDX20
