#include <providers/OneInstance.h>
#include <providers/QUVSG_BMCI2C_DiagnosticServiceRecord_Provider.h>
#include <test/Globals_BMCI2C_Test.h>

namespace {

// The record with the data of the last record of the last test that keeps any.
QUVSG_BMCI2C_DiagnosticServiceRecord* BuildWithKeptData() {
    auto* record = QUVSG_BMCI2C_DiagnosticServiceRecord_Provider::BuildDiagServiceRecord();
    for (DiagService* test : Globals_BMCI2C_Test::Instance()->tests) {
        test->ForEachRecord(
            [&](const DiagnosticRecord& kept) { record->RecordData = kept.RecordData; });
    }
    return record;
}

}  // namespace

int QUVSG_BMCI2C_DiagnosticServiceRecord_Provider::enum_instances(
    const QUVSG_BMCI2C_DiagnosticServiceRecord* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_DiagnosticServiceRecord>* handler) {
    return EnumerateOne({"QUVSG_BMCI2C_DiagnosticServiceRecord_Provider", "", true}, handler,
                        BuildWithKeptData);
}

QUVSG_BMCI2C_DiagnosticServiceRecord*
QUVSG_BMCI2C_DiagnosticServiceRecord_Provider::BuildDiagServiceRecord() {
    auto* record = cimple::create<QUVSG_BMCI2C_DiagnosticServiceRecord>();
    record->Caption = "QUVSG_BMCI2C_DiagnosticServiceRecord";
    record->Description = "QUVSG_BMCI2C_DiagnosticServiceRecord";
    record->ElementName = "QUVSG_BMCI2C_DiagnosticServiceRecord";
    record->RecordFormat = "No Record Format";
    record->RecordData = "No Record Data";
    record->Locale = "en_US_LINUX";
    record->InstanceID = "QUV : QUVSG_BMCI2C_DiagnosticServiceRecord";
    record->ServiceName = "BMC I2C Test";
    record->ManagedElementName = "BMC I2C Bus";
    record->ExpirationDate = cimple::Datetime(0);
    record->RecordType = 12;
    record->OtherRecordTypeDescription = "No Other Record Type Description";
    record->CreationTimeStamp = cimple::Datetime::now();
    record->ErrorCode = {"No Error Code"};
    record->LoopsFailed = 0;
    record->LoopsPassed = 0;
    return record;
}
