// Other tests in the registry than its own.
#pragma once

#include <test/BMCI2C_Test_DiagnosticRecord.h>
#include <test/Globals_BMCI2C_Test.h>

#include <string>
#include <utility>
#include <vector>

// A test that is never run; records are put into it by hand.
class OtherTest : public DiagService {
public:
    explicit OtherTest(std::string newName) : name(std::move(newName)) {}

    std::int32_t RunDiagnostic(cimple::String) override { return 0; }
    cimple::String GetCaption() const override { return "caption of " + name; }
    cimple::String GetDescription() const override { return "description of " + name; }
    cimple::String GetElementName() const override { return name; }

    // Keeps a record with that text.
    void Keep(const std::string& data) {
        auto* record = new BMCI2C_Test_DiagnosticRecord("I2C Bus");
        record->RecordData = data;
        AppendRecord(record);
    }

private:
    std::string name;
};

// Registers these tests alone as long as it lives.
class RegisteredTests {
public:
    explicit RegisteredTests(std::vector<DiagService*> tests) : others(std::move(tests)) { Swap(); }
    ~RegisteredTests() { Swap(); }
    RegisteredTests(const RegisteredTests&) = delete;
    RegisteredTests& operator=(const RegisteredTests&) = delete;

private:
    void Swap() { std::swap(Globals_BMCI2C_Test::Instance()->tests, others); }

    std::vector<DiagService*> others;
};
