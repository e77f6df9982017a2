#include <test/BMCI2C_Test_Impl.h>
#include <test/CoreLog.h>
#include <test/MessageNumbers.h>
#include <unistd.h>

using NQUVZDX20::kLogError;
using NQUVZDX20::kLogTrace;

namespace {

constexpr int kAnnouncedLength = 250;
constexpr std::uint8_t kBusy = 0xFF;
constexpr unsigned int kBusyPauseSeconds = 5;

// A data byte of the answer stands for eight busses, the lowest bit for the first of them.
constexpr unsigned int kBussesPerByte = 8;
constexpr unsigned int kBussesOfFirstByteOnOxcV1 = 0x3F;
constexpr std::size_t kByteUnusedByOxcV2 = 1;

bool OxcFamilyOfNode0() {
    // Not freed: the service-processor library keeps the objects that it made reachable.
    SPLibrary* const controller = SPLibrary::GetSplibraryInstance(0);
    return controller != nullptr && controller->IsOxcControllerMachine();
}

int CountControllers() {
    const std::unique_ptr<SPLibrary> controller = ControllerOfNode(0);
    return controller ? controller->GetNumberBMCNode() : 0;
}

}  // namespace

BMCI2C_Test_Impl::BMCI2C_Test_Impl() : isOxcMachine(OxcFamilyOfNode0()) {}

BMCI2C_Test_Impl::~BMCI2C_Test_Impl() = default;

cimple::String BMCI2C_Test_Impl::GetCaption() const { return "I2C Bus Test"; }

cimple::String BMCI2C_Test_Impl::GetDescription() const { return "Test I2C Busses"; }

cimple::String BMCI2C_Test_Impl::GetElementName() const {
    return isOxcMachine ? "OXC I2C Test" : "BMC I2C Test";
}

std::int32_t BMCI2C_Test_Impl::RunDiagnostic(cimple::String name) {
    const std::lock_guard<std::mutex> oneRun(runLock);
    testName = name.c_str();
    ReplaceRecords({});
    Run run{.record = RunRecord(*this, testName)};
    ReadMachineType();
    ParseXML();
    if (IsMachineSupported()) {
        TestControllers(run);
    } else {
        RecordUnsupportedMachine(run.record);
    }
    return 0;
}

void BMCI2C_Test_Impl::RecordUnsupportedMachine(RunRecord& record) {
    const std::string text = "166-899-001 BMCI2C Bus Test Aborted: The machine with MT [" +
                             machineType + "] is not supported by BMCI2C Bus Test.";
    WriteCoreLog(kLogError, text);
    record.SetResult(text, kCompletionCriticalError);
    record.Keep();
}

void BMCI2C_Test_Impl::TestControllers(Run& run) {
    run.record.Update([](DiagnosticRecord& record) { record.RecordData.clear(); });
    const int count = CountControllers();
    WriteOutput(kLogTrace, "Total number of BMC(s) found = " + std::to_string(count));
    for (int node = 0; node < count; ++node) {
        if (TestController(node, run) == Next::EndOfRun) {
            return;
        }
    }
    WriteOutput(kLogTrace, "Result " + run.record.Text());
    WriteLocation(LocationLine::RunEnd);
}

BMCI2C_Test_Impl::Next BMCI2C_Test_Impl::TestController(int node, Run& run) {
    IpmiExchange exchange(OemCommand::I2cBusStatus, kAnnouncedLength);
    const bool delivered = AskBusStatus(node, exchange);
    const IpmiResponse response = exchange.Response();
    nodeCount = node + 1;
    run.record.Update(
        [&](BMCI2C_Test_DiagnosticRecord& record) { record.ResponseLength = response.Length(); });
    WriteCoreLog(kLogTrace, "isCmdComplete of sendIPMICommand() is : " + std::to_string(delivered) +
                                " fIsOXC: " + std::to_string(isOxcMachine));
    if (!delivered) {
        run.record.SetResult(
            run.record.Text() + GetMessageString(kNotCompletedMessage, kSendFailed),
            kCompletionCriticalError);
        return Next::Controller;
    }
    if (!JudgeResponse(response, run.record)) {
        run.record.Keep();
        return Next::EndOfRun;
    }
    WriteOutput(kLogTrace, "Received data from BMC:" + std::to_string(response.DataByte(0)) + " " +
                               std::to_string(response.DataByte(1)) + " " +
                               std::to_string(response.DataByte(2)));
    const bool isV2 = isOxcMachine && DetectOxcV2();
    RecordBusses(ScanBusses(response, isV2, run), run);
    return Next::Controller;
}

// A busy controller is asked once more; the second answer counts, whatever it is.
bool BMCI2C_Test_Impl::AskBusStatus(int node, IpmiExchange& exchange) {
    WriteCoreLog(kLogTrace, exchange.DumpRequest());
    const bool delivered = exchange.SendTo(ControllerOfNode(node));
    if (!delivered || exchange.Response().CompletionCode() != kBusy) {
        return delivered;
    }
    sleep(kBusyPauseSeconds);
    std::unique_ptr<SPLibrary> controller = ControllerOfNode(node);
    if (controller == nullptr) {
        return delivered;
    }
    exchange = IpmiExchange(OemCommand::I2cBusStatus, kAnnouncedLength);
    return exchange.SendTo(std::move(controller));
}

// Writes down what came. False when it cannot be used; the record then says why.
bool BMCI2C_Test_Impl::JudgeResponse(const IpmiResponse& response, RunRecord& record) {
    const std::string dump = response.Dump();
    record.Update([&](BMCI2C_Test_DiagnosticRecord& result) {
        result.CommandSent = true;
        result.ResponseLog.append(dump);
    });
    WriteCoreLog(kLogTrace, dump);
    if (response.Length() <= 1) {
        WriteCoreLog(kLogError, std::string(kIncorrectRespLength));
        record.SetResult(record.Text() + GetMessageString(kNotCompletedMessage, kBadResponseLength),
                         kCompletionCriticalError);
        return false;
    }
    record.Update([](BMCI2C_Test_DiagnosticRecord& result) { result.ResponseReceived = true; });
    if (response.CompletionCode() != 0) {
        WriteCoreLog(kLogError, std::string(kIncorrectCompletion));
        record.Update([](BMCI2C_Test_DiagnosticRecord& result) {
            result.ResponseLog.append(std::string(kIncorrectCompletion));
        });
        record.SetResult(record.Text() + ProcessCompletionCode(response.CompletionCode()),
                         kCompletionCriticalError);
        return false;
    }
    record.Update([](BMCI2C_Test_DiagnosticRecord& result) { result.CompletionCodeOk = true; });
    return true;
}

bool BMCI2C_Test_Impl::DetectOxcV2() {
    const bool isV2 = IsOxcV2();
    WriteOutput(kLogTrace, isV2 ? "OXC V2 detected" : "OXC V1 detected");
    return isV2;
}

// The messages of the failed busses, one below the other; empty when none failed.
std::string BMCI2C_Test_Impl::ScanBusses(const IpmiResponse& response, bool isV2, Run& run) {
    std::string failures;
    unsigned int firstBus = 0;
    const std::span<const std::uint8_t> data = response.Data();
    for (std::size_t position = 0; position < data.size(); ++position) {
        WriteLocation(LocationLine::DataByte);
        unsigned int failed = data[position];
        if (failed != 0) {
            WriteLocation(LocationLine::FailedBusses);
            if (isV2 && position == kByteUnusedByOxcV2) {
                // The numbers of later busses do not count this byte, though they do when it is 0.
                continue;
            }
            if (isOxcMachine && !isV2 && position == 0) {
                failed &= kBussesOfFirstByteOnOxcV1;
            }
            AddFailedBusses(failed, firstBus, failures, run);
        }
        firstBus += kBussesPerByte;
    }
    return failures;
}

void BMCI2C_Test_Impl::AddFailedBusses(unsigned int failed, unsigned int firstBus,
                                       std::string& failures, Run& run) {
    for (unsigned int bus = 0; bus < kBussesPerByte; ++bus) {
        if ((failed >> bus & 1U) != 0) {
            AddFailedBus(firstBus + bus, failures, run);
        }
    }
}

void BMCI2C_Test_Impl::AddFailedBus(unsigned int bus, std::string& failures, Run& run) {
    if (!failures.empty()) {
        failures += '\n';
    }
    failures += GetMessageString(kBusFaultMessage, static_cast<unsigned short>(kFirstBus + bus));
    run.record.Update(
        [](DiagnosticRecord& record) { record.CompletionState = kCompletionMajorError; });
    WriteOutput(kLogTrace, "Failure string: " + failures);
    run.busFailed = true;
}

// A pass makes good what an earlier controller's silence did to the state, but not a failed bus.
void BMCI2C_Test_Impl::RecordBusses(std::string result, Run& run) {
    const bool passed = result.empty();
    if (passed) {
        result = GetMessageString(kPassMessage, kPassed);
    }
    run.record.Update([&](DiagnosticRecord& record) {
        if (passed && !run.busFailed) {
            record.CompletionState = kCompletionOk;
        }
        if (!record.RecordData.empty()) {
            record.RecordData += '\n';
        }
        record.RecordData += result;
    });
    run.record.KeepAlone();
}
