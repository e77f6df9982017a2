// The I2C bus test: asks every controller of a supported machine for the state of its I2C busses
// and keeps one record that tells the outcome.
#pragma once

#include <catalog/TBmcI2cXMLParser.h>
#include <catalog/TMachine.h>
#include <platform/diagnostics/ILogger.h>
#include <test/DiagService.h>
#include <test/IpmiExchange.h>
#include <test/LocationLines.h>
#include <test/RunRecord.h>

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>

class BMCI2C_Test_Impl : public DiagService {
public:
    static constexpr std::string_view kUnableReadMT =
        "BMCI2C Bus Test fails with reason : Unable to read machine type from SMBIOS.";
    static constexpr std::string_view kMTEmpty =
        "BMCI2C Bus Test fails with reason : Machine Type is Empty.";
    static constexpr std::string_view kIncorrectRespLength =
        "BMCI2C Bus Test fails with reason : Incorrect IPMI response length.";
    static constexpr std::string_view kIncorrectCompletion =
        "BMCI2C Bus Test fails with reason : Incorrect completion code.";
    static constexpr std::string_view kSendIPMIFail =
        "BMCI2C Bus Test fails with reason : IPMI command failed to send successfully.";
    static constexpr std::string_view kBMCI2CPass = "BMCI2C Bus Test Passed!";
    static constexpr std::string_view kBMCI2CFail = "BMCI2C Bus Test Failed";

    // Asks controller node 0 for the controllers' family.
    BMCI2C_Test_Impl();
    ~BMCI2C_Test_Impl() override;

    // Waits for a run that is under way. Lets exceptions of platform and catalog through; the next
    // run works nevertheless. A busy controller makes it pause for 5 seconds.
    std::int32_t RunDiagnostic(cimple::String name) override;
    cimple::String GetCaption() const override;
    cimple::String GetDescription() const override;
    cimple::String GetElementName() const override;

    // True when the catalog lists this machine. Reads machine type and catalog first.
    bool SupportedMachineType();

    // The steps of a run, for the run and for tests; they do not exclude a run.

    // Stores the machine type; keeps a record when there is none.
    void ReadMachineType();
    // Reads the catalog, once per object: a catalog that cannot be opened is not tried again.
    void ParseXML();
    // Looks machine type and BIOS identifier up in the catalog and picks the entries for messages.
    bool IsMachineSupported();
    // True for the second generation of the OXC controller; false also when it does not tell.
    bool IsOxcV2();
    // The result line for a completion code other than 0.
    std::string ProcessCompletionCode(unsigned char code);
    // A result line with its recommendations; empty when the machine or the generic machine is not
    // in the catalog. `kind` and `number` are those of MessageNumbers.h.
    std::string GetMessageString(int kind, unsigned short number);
    // Log "BMCI2C: ..." and "BMCI2C At FILE: LINE: ...". A null `file` ends the line before it.
    void WriteOutput(NQUVZDX20::EZDXLogSeverity severity, const std::string& text);
    void WriteOutputLocation(NQUVZDX20::EZDXLogSeverity severity, const char* file, int line,
                             const std::string& text);

    TBmcI2cXMLParser parser;
    boost::shared_ptr<TMachine> machine;         // the catalog's entry of this machine
    boost::shared_ptr<TMachine> genericMachine;  // the catalog's fallback entry
    std::string machineType;
    std::string testName;  // of the last run
    // Controllers handled in the current run. Kept after it, so that a message made before the
    // next run's first controller carries the old number.
    std::int32_t nodeCount = 0;
    const bool isOxcMachine;

private:
    struct Run {
        RunRecord record;
        bool busFailed = false;  // on any controller so far
    };
    enum class Next { Controller, EndOfRun };

    void RecordUnsupportedMachine(RunRecord& record);
    void TestControllers(Run& run);
    Next TestController(int node, Run& run);
    bool AskBusStatus(int node, IpmiExchange& exchange);
    bool JudgeResponse(const IpmiResponse& response, RunRecord& record);
    bool DetectOxcV2();
    std::string ScanBusses(const IpmiResponse& response, bool isV2, Run& run);
    void AddFailedBusses(unsigned int failed, unsigned int firstBus, std::string& failures,
                         Run& run);
    void AddFailedBus(unsigned int bus, std::string& failures, Run& run);
    void RecordBusses(std::string result, Run& run);

    void KeepMachineTypeFailure(RunRecord& record, std::string_view reason, unsigned short number);
    void ReadCatalog(const std::string& path);
    std::string MessageLine(int kind, unsigned short number);
    std::string Recommendations(unsigned short number);
    void WriteLocation(LocationLine line);

    // One run at a time: guards parser, machine, genericMachine, machineType, testName and
    // nodeCount.
    std::mutex runLock;
};
