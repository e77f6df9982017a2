// Stands in for the platform's core logger and machine data: a test program that links this gets
// the functions of TRootObject and TOSSpecific from here.
//
//     FakeDiagnostics::Reset();
//     FakeDiagnostics::machineType = "7000";
//     ...
//     EXPECT_THAT(FakeDiagnostics::Lines(), Contains(LogLine{kLogTrace, "BMCI2C: ..."}));
#pragma once

#include <platform/diagnostics/ILogger.h>

#include <exception>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

// One line that was given to the core logger.
struct LogLine {
    NQUVZDX20::EZDXLogSeverity severity;
    std::string text;

    bool operator==(const LogLine&) const = default;
};

std::ostream& operator<<(std::ostream& output, const LogLine& line);

class FakeDiagnostics {
public:
    // Forgets the lines and gives every value below its first one again.
    static void Reset();

    // The lines so far, in order. May be called while other threads log.
    static std::vector<LogLine> Lines();
    // The node of LogNode that each line is about, in the same order.
    static std::vector<std::optional<int>> Nodes();
    // The texts of the lines of one severity, in order.
    static std::vector<std::string> Texts(NQUVZDX20::EZDXLogSeverity severity);

    // What TOSSpecific answers. File sizes are the true ones unless one is set.
    static inline std::string machineType;
    static inline std::string biosId;
    static inline std::string root;
    static inline std::string smbiosProblem;
    static inline bool oemBuild = false;
    static inline std::optional<unsigned long> fileSize;
    // Thrown instead of an answer to the question for the machine type.
    static inline std::exception_ptr machineTypeFailure;
};
