// A diagnostic test and the records of its latest run.
//
//     for (DiagService* test : Globals_BMCI2C_Test::Instance()->tests) {
//         test->RunDiagnostic("I2C Bus");
//         test->ForEachRecord([](const DiagnosticRecord& record) { Show(record.RecordData); });
//     }
#pragma once

#include <framework/String.h>
#include <test/DiagnosticRecord.h>

#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

class DiagService {
public:
    DiagService() = default;
    DiagService(const DiagService&) = delete;
    DiagService& operator=(const DiagService&) = delete;

    // Destroys the records in the list, in its order.
    virtual ~DiagService();

    // Runs the test and keeps its records; the status is 0 whatever the outcome.
    virtual std::int32_t RunDiagnostic(cimple::String testName) = 0;
    virtual cimple::String GetCaption() const = 0;
    virtual cimple::String GetDescription() const = 0;
    virtual cimple::String GetElementName() const = 0;

    // Reads the machine type of this server from the platform; the status is always 0.
    std::int32_t GetMachineType(std::string* machineType);

    // Splits the `length` bytes at `text`: the first token ends at the first `separator`, each
    // later one at the next NUL. A token whose end is one of the last two bytes is not taken.
    std::vector<std::string> MultiStringTok(const char* text, unsigned long length, char separator);

    // Visits the records in list order while holding their lock, so `visit` must only copy what it
    // needs: it must not start a run or call the CIMOM.
    void ForEachRecord(const std::function<void(const DiagnosticRecord&)>& visit) const;

    // Puts a record at the end of the list, which owns it from then on. A record may be appended
    // twice; it is destroyed once. A record that readers can see does not change any more.
    void AppendRecord(DiagnosticRecord* record);

    // Makes `kept` the list and destroys every former record that it does not hold.
    void ReplaceRecords(std::vector<DiagnosticRecord*> kept);

    // The records of a run appear together: its beginning empties the list, and what is appended
    // while an object lives is shown when the object ends. When an exception ends the run, these
    // are the records of the controllers that it had finished.
    class RunScope {
    public:
        explicit RunScope(DiagService& runningTest);
        ~RunScope();
        RunScope(const RunScope&) = delete;
        RunScope& operator=(const RunScope&) = delete;

    private:
        DiagService& test;
    };

    std::vector<DiagnosticRecord*> records;  // as readers see them, who use ForEachRecord

private:
    std::vector<DiagnosticRecord*>& ListInWork() { return isRunning ? recordsOfRun : records; }

    // Guards the members below and `records`. Held for moments only, so that reading records never
    // waits for a run.
    mutable std::mutex recordsLock;
    bool isRunning = false;
    std::vector<DiagnosticRecord*> recordsOfRun;  // of the run that is under way
};
