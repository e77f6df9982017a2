// The record that a run is working on.
//
// The run owns it until it is first kept in the test's list; a record that is never kept is freed
// at the run's end.
#pragma once

#include <test/BMCI2C_Test_DiagnosticRecord.h>
#include <test/DiagService.h>

#include <cstdint>
#include <memory>
#include <string>

class RunRecord {
public:
    RunRecord(DiagService& ownerTest, std::string name);

    BMCI2C_Test_DiagnosticRecord* operator->() { return record; }

    // Sets the result text and the completion state together.
    void SetResult(const std::string& text, std::int32_t completionState);

    const std::string& Text() const { return record->RecordData; }

    // Appends the record to the test's list, once more if it is there already.
    void Keep();

    // Makes the record the only one in the test's list.
    void KeepAlone();

    // Freezes the list: later findings of the run go into a record that is never kept.
    void Close();
    bool IsClosed() const { return closed; }

private:
    DiagService& test;
    const std::string testName;
    std::unique_ptr<BMCI2C_Test_DiagnosticRecord> unkept;  // empty once the list owns the record
    BMCI2C_Test_DiagnosticRecord* record;
    bool closed = false;
};
