// The result that a run of a diagnostic test leaves behind.
#pragma once

#include <framework/Datetime.h>

#include <cstdint>
#include <string>

// Values of CompletionState that a run sets, of the CIM value map of that name.
inline constexpr std::int32_t kCompletionOk = 2;
inline constexpr std::int32_t kCompletionMajorError = 5;
inline constexpr std::int32_t kCompletionCriticalError = 6;

class DiagnosticRecord {
public:
    explicit DiagnosticRecord(std::string name);
    DiagnosticRecord(const DiagnosticRecord&) = delete;
    DiagnosticRecord& operator=(const DiagnosticRecord&) = delete;
    virtual ~DiagnosticRecord();

    virtual std::int32_t GetCompletionState() const = 0;

    bool Passed = true;  // stays true: the outcome is told by CompletionState
    std::string Name;    // of the test, as the caller of the run gave it
    cimple::Datetime CreationTimeStamp;
    std::string ErrorCode;
    std::string RecordData;  // the result text for people
    std::int32_t CompletionState = 0;
};
