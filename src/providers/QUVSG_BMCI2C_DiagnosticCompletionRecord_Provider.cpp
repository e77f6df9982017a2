#include <framework/Status.h>
#include <providers/QUVSG_BMCI2C_DiagnosticCompletionRecord_Provider.h>
#include <test/Globals_BMCI2C_Test.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

// The test engine knows no CIM class, so it names these values itself.
using Record = QUVSG_BMCI2C_DiagnosticCompletionRecord;
static_assert(kCompletionOk == Record::CompletionState_OK);
static_assert(kCompletionMajorError == Record::CompletionState_MajorError);
static_assert(kCompletionCriticalError == Record::CompletionState_CriticalError);

// Whether every step passed; a record without steps has not failed.
bool AllPassed(const cimple::Array<bool>& results) {
    bool passed = true;
    for (std::size_t i = 0; i < results.size(); ++i) passed = passed && results[i];
    return passed;
}

}  // namespace

int QUVSG_BMCI2C_DiagnosticCompletionRecord_Provider::enum_instances(
    const QUVSG_BMCI2C_DiagnosticCompletionRecord* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_DiagnosticCompletionRecord>* handler) {
    for (DiagService* test : Globals_BMCI2C_Test::Instance()->tests) {
        for (RecordInstance& instance : BuildRecords(*test)) {
            handler->handle(instance.release());
        }
    }
    return cimple::STATUS_OK;
}

// They are built while the records are locked and delivered after, because delivery may wait for
// the client.
std::vector<QUVSG_BMCI2C_DiagnosticCompletionRecord_Provider::RecordInstance>
QUVSG_BMCI2C_DiagnosticCompletionRecord_Provider::BuildRecords(const DiagService& test) {
    std::vector<RecordInstance> instances;
    test.ForEachRecord([&](const DiagnosticRecord& record) {
        const auto* details = dynamic_cast<const BMCI2C_Test_DiagnosticRecord*>(&record);
        const auto index = static_cast<std::uint32_t>(instances.size());
        instances.emplace_back(
            BuildRecord(record, index, test.GetElementName(),
                        details != nullptr ? details->ResultArray : cimple::Array<bool>(),
                        details != nullptr ? details->LogArray : cimple::Array<cimple::String>()));
    });
    return instances;
}

QUVSG_BMCI2C_DiagnosticCompletionRecord*
QUVSG_BMCI2C_DiagnosticCompletionRecord_Provider::BuildRecord(
    const DiagnosticRecord& record, std::uint32_t /*index*/, const cimple::String& elementName,
    cimple::Array<bool> resultArray, cimple::Array<cimple::String> logArray) {
    auto* instance = cimple::create<QUVSG_BMCI2C_DiagnosticCompletionRecord>();
    instance->Caption = "DiagnosticRecord";
    instance->Description = "Diagnostics results record";
    instance->ElementName = std::string("Result for ") + elementName.c_str();
    instance->RecordFormat = "";
    instance->RecordData = record.RecordData;
    instance->Locale = "en";
    instance->InstanceID = Globals_BMCI2C_Test::Instance()->GetInstanceID();
    instance->ServiceName = elementName;
    instance->ManagedElementName = record.Name;
    instance->RecordType = instance->RecordType_Results;
    instance->CreationTimeStamp = record.CreationTimeStamp;
    if (record.Passed) {
        instance->ErrorCount = {0};
    } else {
        instance->ErrorCode = {record.ErrorCode};
        instance->ErrorCount = {1};
    }
    // Both loop counters read 0 for every record, passed or failed: clients rely on it.
    instance->LoopsFailed = 0;
    instance->LoopsPassed = 0;
    instance->CompletionState = static_cast<std::uint16_t>(record.GetCompletionState());
    instance->OtherCompletionStateDescription = "No other Completion State Description";
    instance->OverallResult = AllPassed(resultArray);
    instance->ResultArray = resultArray;
    instance->LogArray = logArray;
    return instance;
}

void QUVSG_BMCI2C_DiagnosticCompletionRecord_Provider::PrintLog(
    const BMCI2C_Test_DiagnosticRecord* record) {
    for (std::size_t i = 0; i < record->ResponseLog.size(); ++i) {
        std::printf(
            "\nIn QUVSG_BMCI2C_DiagnosticCompletionRecord, the %d item of  LogArray is : %s",
            static_cast<int>(i), record->ResponseLog[i].c_str());
    }
}
