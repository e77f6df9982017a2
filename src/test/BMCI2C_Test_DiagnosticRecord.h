// The result of one run of the I2C bus test.
#pragma once

#include <framework/Array.h>
#include <framework/String.h>
#include <test/DiagnosticRecord.h>

#include <cstdint>
#include <string>
#include <vector>

class BMCI2C_Test_DiagnosticRecord : public DiagnosticRecord {
public:
    // RecordData says that the test has not started yet, until a run changes it.
    explicit BMCI2C_Test_DiagnosticRecord(std::string name);
    ~BMCI2C_Test_DiagnosticRecord() override;

    std::int32_t GetCompletionState() const override { return CompletionState; }

    cimple::Array<bool> ResultArray;
    cimple::Array<cimple::String> LogArray;
    // One dump line per controller response, and why a completion code was refused.
    cimple::Array<cimple::String> ResponseLog;
    bool ResultValid = true;
    bool ResultFlag = false;
    std::string MachineType;
    bool MachineTypeValid = true;
    std::string BiosId;
    bool ResponseReceived = false;    // a response came with more than a completion code
    bool CommandSent = false;         // a request was delivered
    std::int32_t ResponseLength = 0;  // as the transport returned it for the last request
    bool CompletionCodeOk = false;
    std::vector<std::string> Messages;
};
