#include <test/DiagnosticRecord.h>

#include <utility>

DiagnosticRecord::DiagnosticRecord(std::string name)
    : Name(std::move(name)), CreationTimeStamp(cimple::Datetime::now()) {}

DiagnosticRecord::~DiagnosticRecord() = default;
