// The record that a run is working on.
//
// The run owns it until it is first kept in the test's list; a record that is never kept is freed
// at the run's end. Readers may see a kept record at any time, so each change is made under the
// lock of the list.
#pragma once

#include <test/BMCI2C_Test_DiagnosticRecord.h>
#include <test/DiagService.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

class RunRecord {
public:
    RunRecord(DiagService& ownerTest, const std::string& testName);

    // Calls `change` with the record. Log lines and messages are made before, not in it.
    template <class Change>
    void Update(Change change) {
        const std::lock_guard<std::mutex> changing(test.recordsLock);
        change(*record);
    }

    // Sets the result text and the completion state together.
    void SetResult(const std::string& text, std::int32_t completionState);

    // The result text so far. Only for the run itself, which alone changes it.
    const std::string& Text() const { return record->RecordData; }

    // Appends the record to the test's list, once more if it is there already.
    void Keep();

    // Makes the record the only one in the test's list.
    void KeepAlone();

private:
    DiagService& test;
    std::unique_ptr<BMCI2C_Test_DiagnosticRecord> unkept;  // empty once the list owns the record
    BMCI2C_Test_DiagnosticRecord* record;
};
