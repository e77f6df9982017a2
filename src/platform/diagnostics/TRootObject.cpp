#include <base/NoDestructor.h>
#include <platform/diagnostics/CoreLogger.h>
#include <platform/diagnostics/TRootObject.h>

namespace NQUVZDX20 {

ILogger* TRootObject::GetCoreLogger() {
    static base::NoDestructor<CoreLogger> logger;
    return &*logger;
}

}  // namespace NQUVZDX20
