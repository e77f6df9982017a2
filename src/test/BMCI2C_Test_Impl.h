// The I2C bus test: asks every controller of a supported machine for the state of its I2C busses
// and keeps one record that tells the outcome.
#pragma once

#include <catalog/TBmcI2cXMLParser.h>
#include <catalog/TMachine.h>
#include <platform/diagnostics/ILogger.h>
#include <test/DiagService.h>
#include <test/IpmiExchange.h>
#include <test/LocationLines.h>
#include <test/RunOptions.h>
#include <test/RunRecord.h>
#include <test/RunResult.h>

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

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

    // Waits for a run in progress. Lets exceptions of platform and catalog through; the next run
    // still works. Pauses for 5 seconds before the retry at a busy controller.
    RunResult Run(const std::string& name, const RunOptions& options = {});
    // The same for CIM clients, who read the records; always 0.
    std::int32_t RunDiagnostic(cimple::String name) override;
    cimple::String GetCaption() const override;
    cimple::String GetDescription() const override;
    cimple::String GetElementName() const override;

    // The message catalog's file.
    static std::string CatalogPath();

    // True when the catalog lists this machine. Reads machine type and catalog first.
    bool SupportedMachineType();

    // The steps of a run; they do not take runLock.

    // Stores the machine type. When there is none it keeps a record and gives its message.
    std::optional<ResultMessage> ReadMachineType();
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

private:
    // What is known about the controllers' family when the test is created.
    struct Family {
        bool isOxc = false;
        std::optional<platform::Trouble> trouble;  // why it is not known
    };
    static Family FamilyOfNode0();
    const Family family = FamilyOfNode0();

public:
    const bool isOxcMachine = family.isOxc;

private:
    struct CurrentRun {
        RunRecord record;
        const RunOptions& options;
        RunResult result = {};
        SPMachine described = {};  // the controllers, the same for the whole run
        bool busFailed = false;    // on any controller so far

        bool IsStopped() const { return options.stop != nullptr && *options.stop; }
        // Ends the run without a judgement of this controller.
        void Interrupt(ControllerResult& controller);
        template <class Call>
        void Notify(Call call) const {
            if (options.observer != nullptr) call(*options.observer);
        }
    };
    enum class Next { Controller, EndOfRun };
    enum class Answer { Delivered, NotDelivered, StoppedInPause };

    void RunSteps(CurrentRun& run);
    void DescribeMachine(CurrentRun& run);
    void RecordUnsupportedMachine(CurrentRun& run);
    void TestControllers(CurrentRun& run);
    Next TestController(CurrentRun& run, ControllerResult& controller);
    Answer AskBusStatus(IpmiExchange& exchange, const CurrentRun& run,
                        ControllerResult& controller);
    Next JudgeNoResponse(const IpmiExchange& exchange, CurrentRun& run,
                         ControllerResult& controller);
    Next JudgeResponse(const platform::IpmiResponse& response, CurrentRun& run,
                       ControllerResult& controller);
    static Next EndRecord(CurrentRun& run, const ControllerResult& controller);
    Next JudgeBusses(const platform::IpmiResponse& response, CurrentRun& run,
                     ControllerResult& controller);
    void RecordBusses(const std::string& failures, CurrentRun& run, ControllerResult& controller);

    // The generation of an OXC controller, and why it is unknown.
    struct GenerationAnswer {
        Generation generation = Generation::Unknown;
        std::string reason;
    };
    GenerationAnswer DetectGeneration(const CurrentRun& run);
    static GenerationAnswer AskGeneration(const SPMachine& described, const SPShare& share);

    // The messages of the failed busses, one below the other; empty when none failed.
    std::string ScanBusses(const platform::IpmiResponse& response, ControllerResult& controller);
    void AddFailedBus(unsigned int bus, std::string& failures, ControllerResult& controller);
    // True when the generation is not known, and the two mean different busses by the answer.
    static bool DependsOnGeneration(const ControllerResult& controller);

    ResultMessage KeepMachineTypeFailure(RunRecord& record, std::string_view reason,
                                         unsigned short number);
    void ReadCatalog(const std::string& path);
    std::string_view GenericType() const;
    void ParseCatalog(const std::string& path, std::span<char> text);
    ResultMessage BuildMessage(int kind, unsigned short number);
    ResultMessage CompletionCodeMessage(unsigned char code);
    void WriteLocation(LocationLine line);

    std::string biosId;                               // as the last support check read it
    std::optional<platform::Trouble> catalogTrouble;  // why the catalog was not read to its end

    // One run at a time: guards parser, machine, genericMachine, machineType, testName, nodeCount,
    // biosId and catalogTrouble.
    std::mutex runLock;
};
