// Completion records as the module gives them.
#pragma once

#include <cli/DiagnosticRun.h>

#include <cstdint>
#include <string>
#include <vector>

namespace cli {

inline host::Instance Record(std::uint64_t completionState, const std::string& text) {
    return {
        ClassPath(kRecordClass),
        {{"RecordData", {CMPI_string, text}}, {"CompletionState", {CMPI_uint16, completionState}}}};
}

inline DiagnosticRun RunWith(std::vector<host::Instance> records) {
    DiagnosticRun run;
    run.status = host::Status{};
    run.records = std::move(records);
    return run;
}

}  // namespace cli
