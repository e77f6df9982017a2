#include <platform/diagnostics/TRootObject.h>
#include <test/CoreLog.h>

void WriteCoreLog(NQUVZDX20::EZDXLogSeverity severity, const std::string& text) {
    NQUVZDX20::TRootObject::GetCoreLogger()->Log(severity, text);
}
