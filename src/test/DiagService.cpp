#include <platform/diagnostics/TOSSpecific.h>
#include <test/CoreLog.h>
#include <test/DiagService.h>

#include <algorithm>
#include <iterator>
#include <locale>
#include <sstream>
#include <string_view>

namespace {

void Destroy(std::vector<DiagnosticRecord*> dropped) {
    constexpr DiagnosticRecord* kGone = nullptr;
    for (auto record = dropped.begin(); record != dropped.end(); ++record) {
        std::replace(std::next(record), dropped.end(), *record, kGone);
        delete *record;
    }
}

}  // namespace

DiagService::~DiagService() { ReplaceRecords({}); }

std::int32_t DiagService::GetMachineType(std::string* machineType) {
    WriteCoreLog(NQUVZDX20::kLogTrace, "getMachineType() entered.");
    *machineType = NQUVZDX20::TOSSpecific::GetMachineTypeFromID();
    std::ostringstream line;
    line.imbue(std::locale::classic());
    line << "getMachineType:  = " << static_cast<const void*>(machineType);
    WriteCoreLog(NQUVZDX20::kLogTrace, line.str());
    return 0;
}

std::vector<std::string> DiagService::MultiStringTok(const char* text, unsigned long length,
                                                     char separator) {
    const std::string_view all(text, length);
    std::vector<std::string> tokens;
    std::size_t begin = 0;
    std::size_t end = all.find(separator);
    while (end != std::string_view::npos && end + 2 < length) {
        tokens.emplace_back(all.substr(begin, end - begin));
        begin = end + 1;
        end = all.find('\0', begin);
    }
    return tokens;
}

void DiagService::ForEachRecord(const std::function<void(const DiagnosticRecord&)>& visit) const {
    const std::lock_guard<std::mutex> reading(recordsLock);
    for (const DiagnosticRecord* record : records) {
        if (record != nullptr) {
            visit(*record);
        }
    }
}

void DiagService::AppendRecord(DiagnosticRecord* record) {
    const std::lock_guard<std::mutex> changing(recordsLock);
    ListInWork().push_back(record);
}

void DiagService::ReplaceRecords(std::vector<DiagnosticRecord*> kept) {
    std::vector<DiagnosticRecord*> dropped = kept;
    {
        const std::lock_guard<std::mutex> changing(recordsLock);
        dropped.swap(ListInWork());
    }
    std::erase_if(dropped, [&kept](const DiagnosticRecord* record) {
        return std::find(kept.begin(), kept.end(), record) != kept.end();
    });
    Destroy(std::move(dropped));
}

DiagService::RunScope::RunScope(DiagService& runningTest) : test(runningTest) {
    std::vector<DiagnosticRecord*> dropped;
    {
        const std::lock_guard<std::mutex> changing(test.recordsLock);
        dropped.swap(test.records);
        test.isRunning = true;
    }
    Destroy(std::move(dropped));
}

DiagService::RunScope::~RunScope() {
    const std::lock_guard<std::mutex> changing(test.recordsLock);
    test.isRunning = false;
    test.records.swap(test.recordsOfRun);
}
