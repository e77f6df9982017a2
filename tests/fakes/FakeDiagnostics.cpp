#include <fakes/FakeDiagnostics.h>
#include <platform/diagnostics/LogNode.h>
#include <platform/diagnostics/TOSSpecific.h>
#include <platform/diagnostics/TRootObject.h>

#include <filesystem>
#include <mutex>
#include <ostream>
#include <system_error>

namespace {

class RecordingLogger : public NQUVZDX20::ILogger {
public:
    void Log(NQUVZDX20::EZDXLogSeverity severity, const std::string& text) override {
        const std::lock_guard<std::mutex> recording(linesLock);
        lines.push_back({severity, text});
        nodes.push_back(NQUVZDX20::LogNode::Current());
    }

    std::vector<LogLine> Lines() {
        const std::lock_guard<std::mutex> reading(linesLock);
        return lines;
    }

    std::vector<std::optional<int>> Nodes() {
        const std::lock_guard<std::mutex> reading(linesLock);
        return nodes;
    }

    void Clear() {
        const std::lock_guard<std::mutex> clearing(linesLock);
        lines.clear();
        nodes.clear();
    }

private:
    std::mutex linesLock;  // guards the members below: tests with several threads log here, too
    std::vector<LogLine> lines;
    std::vector<std::optional<int>> nodes;
};

RecordingLogger& Recorder() {
    static RecordingLogger recorder;
    return recorder;
}

}  // namespace

std::ostream& operator<<(std::ostream& output, const LogLine& line) {
    return output << line.severity << ": " << line.text;
}

void FakeDiagnostics::Reset() {
    Recorder().Clear();
    machineType.clear();
    biosId.clear();
    root.clear();
    smbiosProblem.clear();
    oemBuild = false;
    fileSize.reset();
    machineTypeFailure = nullptr;
}

std::vector<LogLine> FakeDiagnostics::Lines() { return Recorder().Lines(); }

std::vector<std::optional<int>> FakeDiagnostics::Nodes() { return Recorder().Nodes(); }

std::vector<std::string> FakeDiagnostics::Texts(NQUVZDX20::EZDXLogSeverity severity) {
    std::vector<std::string> texts;
    for (const LogLine& line : Lines()) {
        if (line.severity == severity) {
            texts.push_back(line.text);
        }
    }
    return texts;
}

namespace NQUVZDX20 {

ILogger* TRootObject::GetCoreLogger() { return &Recorder(); }

std::string TOSSpecific::GetMachineTypeFromID() {
    if (FakeDiagnostics::machineTypeFailure != nullptr) {
        std::rethrow_exception(FakeDiagnostics::machineTypeFailure);
    }
    return FakeDiagnostics::machineType;
}

std::string TOSSpecific::GetBiosID() { return FakeDiagnostics::biosId; }

std::string TOSSpecific::SmbiosProblem() { return FakeDiagnostics::smbiosProblem; }

std::string TOSSpecific::GetZDXRootPath() { return FakeDiagnostics::root; }

unsigned long TOSSpecific::GetFileSize(std::string path) {
    if (FakeDiagnostics::fileSize.has_value()) {
        return *FakeDiagnostics::fileSize;
    }
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(path, failure);
    return failure ? 0 : static_cast<unsigned long>(size);
}

bool TOSSpecific::isOEMBuild() { return FakeDiagnostics::oemBuild; }

}  // namespace NQUVZDX20
