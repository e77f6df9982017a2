#include "RecordingLogger.h"

#include <platform/diagnostics/TRootObject.h>

namespace NQUVZDX20 {

namespace {

class RecordingLogger final : public ILogger {
public:
    void Log(EZDXLogSeverity severity, const std::string& text) override {
        recordedLines.emplace_back(severity, text);
    }
};

}  // namespace

ILogger* TRootObject::GetCoreLogger() {
    static RecordingLogger logger;
    return &logger;
}

}  // namespace NQUVZDX20
