// A run of the diagnostic and what it left behind.
#pragma once

#include <host/Host.h>

#include <optional>
#include <string>
#include <vector>

namespace cli {

// The name space and classes of the module.
inline constexpr const char* kNameSpace = "root/QUVSD";
inline constexpr const char* kServiceClass = "QUVSG_BMCI2C_DiagnosticService";
inline constexpr const char* kJobClass = "QUVSG_BMCI2C_ConcreteJob";
inline constexpr const char* kRecordClass = "QUVSG_BMCI2C_DiagnosticCompletionRecord";

struct DiagnosticRun {
    std::optional<host::Status> status;  // of the call; nothing when it was not made
    host::Value returnValue;
    std::optional<host::Instance> job;
    std::vector<host::Instance> records;
    std::string problem;  // why the run has no outcome; empty when it has one
};

enum class Verdict { Passed, Failed, NotCompleted, NoOutcome };

// The path of a class in the module's name space.
host::ObjectPath ClassPath(const std::string& className);

// Invokes RunDiagnostic on the service that the module enumerates, and nothing more. Throws
// CallError.
host::MethodResult InvokeDiagnostic(host::Host& host);

// Invokes RunDiagnostic and enumerates the records; a failure becomes the run's problem.
DiagnosticRun RunDiagnostic(host::Host& host);

// Failed: a record says so. Not completed: no record was kept, one says so, or one holds the line
// of a controller that could not be judged, which a later controller's pass hides from its state.
Verdict Judge(const DiagnosticRun& run);

// "passed", "failed", "not completed" or "error".
std::string VerdictText(Verdict verdict);

// The exit code of a verdict.
int ExitCodeOf(Verdict verdict);

// A value that is a text; empty when there is none.
std::string TextOf(const std::vector<host::NamedValue>& values, const std::string& name);

// The record's text; empty when it has none.
std::string RecordText(const host::Instance& record);

}  // namespace cli
