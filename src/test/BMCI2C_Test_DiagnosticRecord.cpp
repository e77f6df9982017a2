#include <test/BMCI2C_Test_DiagnosticRecord.h>

#include <utility>

BMCI2C_Test_DiagnosticRecord::BMCI2C_Test_DiagnosticRecord(std::string name)
    : DiagnosticRecord(std::move(name)) {
    RecordData = "BMCI2C Bus Test hasn't started yet.";
}

BMCI2C_Test_DiagnosticRecord::~BMCI2C_Test_DiagnosticRecord() = default;
