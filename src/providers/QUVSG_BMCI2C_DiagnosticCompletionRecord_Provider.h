// The results that the tests keep, one instance per record, for as long as the test keeps it.
#pragma once

#include <framework/Array.h>
#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <framework/Instance_Ptr.h>
#include <framework/String.h>
#include <schema/QUVSG_BMCI2C_DiagnosticCompletionRecord.h>
#include <test/BMCI2C_Test_DiagnosticRecord.h>
#include <test/DiagService.h>

#include <cstdint>
#include <memory>
#include <vector>

class QUVSG_BMCI2C_DiagnosticCompletionRecord_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_DiagnosticCompletionRecord> {
public:
    using RecordInstance = std::unique_ptr<QUVSG_BMCI2C_DiagnosticCompletionRecord, cimple::Unref>;

    int enum_instances(
        const QUVSG_BMCI2C_DiagnosticCompletionRecord* model,
        cimple::Enum_Instances_Handler<QUVSG_BMCI2C_DiagnosticCompletionRecord>* handler);

    // One instance per record that the test keeps.
    static std::vector<RecordInstance> BuildRecords(const DiagService& test);

    // A new instance for a record, owned by the caller. The record's index within its test plays
    // no part: all records of a run carry the registry's one instance ID.
    static QUVSG_BMCI2C_DiagnosticCompletionRecord* BuildRecord(
        const DiagnosticRecord& record, std::uint32_t index, const cimple::String& elementName,
        cimple::Array<bool> resultArray, cimple::Array<cimple::String> logArray);

    // Prints the record's responses to standard output; for use from a debugger.
    static void PrintLog(const BMCI2C_Test_DiagnosticRecord* record);
};
