#include <platform/diagnostics/LogNode.h>
#include <platform/diagnostics/TOSSpecific.h>
#include <platform/service_processor/TimeAllowance.h>
#include <test/BMCI2C_Test_Impl.h>
#include <test/CoreLog.h>
#include <test/MessageNumbers.h>
#include <test/RunLog.h>
#include <test/RunTroubles.h>
#include <unistd.h>

#include <algorithm>
#include <exception>
#include <utility>

using NQUVZDX20::kLogError;
using NQUVZDX20::kLogTrace;

namespace {

constexpr int kAnnouncedLength = 250;
constexpr auto kPause = std::chrono::duration_cast<std::chrono::seconds>(platform::kBusyPause);

using Clock = std::chrono::steady_clock;

std::chrono::milliseconds Since(Clock::time_point begin) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin);
}

int CountControllers(const SPMachine& machine) {
    const std::unique_ptr<SPLibrary> controller = ControllerOfNode(0, machine);
    return controller ? controller->GetNumberBMCNode() : 0;
}

bool IsBusy(const IpmiExchange& exchange) {
    return exchange.Response().CompletionCode() == platform::kControllerBusy;
}

bool HasUnjudgedBus(const ControllerResult& controller) {
    return std::ranges::any_of(controller.busses,
                               [](const Bus& bus) { return bus.state == BusState::Unjudged; });
}

}  // namespace

// The object is not freed: the service-processor library keeps those that it made reachable.
BMCI2C_Test_Impl::Family BMCI2C_Test_Impl::FamilyOfNode0() {
    SPLibrary* const controller = SPLibrary::GetSplibraryInstance(0);
    if (controller == nullptr) {
        return {};
    }
    const bool isOxc = controller->IsOxcControllerMachine();
    return {.isOxc = isOxc, .trouble = controller->FamilyTrouble()};
}

BMCI2C_Test_Impl::BMCI2C_Test_Impl() : BMCI2C_Test_Impl(FamilyOfNode0()) {}

BMCI2C_Test_Impl::BMCI2C_Test_Impl(Family family)
    : isOxcMachine(family.isOxc), familyTrouble(std::move(family.trouble)) {}

BMCI2C_Test_Impl::~BMCI2C_Test_Impl() = default;

cimple::String BMCI2C_Test_Impl::GetCaption() const { return "I2C Bus Test"; }

cimple::String BMCI2C_Test_Impl::GetDescription() const { return "Test I2C Busses"; }

cimple::String BMCI2C_Test_Impl::GetElementName() const {
    return isOxcMachine ? "OXC I2C Test" : "BMC I2C Test";
}

std::int32_t BMCI2C_Test_Impl::RunDiagnostic(cimple::String name) {
    Run(name.c_str());
    return 0;
}

RunResult BMCI2C_Test_Impl::Run(const std::string& name, const RunOptions& options) {
    const std::lock_guard<std::mutex> oneRun(runLock);
    testName = name;
    const RunScope recordsAppearAtTheEnd(*this);
    CurrentRun run{.record = RunRecord(*this, testName), .options = options};
    const Clock::time_point begin = Clock::now();
    run.result.begin = std::chrono::system_clock::now();
    try {
        RunSteps(run);
    } catch (const std::exception& error) {
        WriteRunFailure(error.what());
        throw;
    }
    run.result.end = std::chrono::system_clock::now();
    run.result.elapsed = Since(begin);
    run.result.verdict = Judge(run.result);
    WriteRunLog(run.result);
    return std::move(run.result);
}

void BMCI2C_Test_Impl::RunSteps(CurrentRun& run) {
    if (auto failure = ReadMachineType()) {
        run.result.messages.push_back(*std::move(failure));
    }
    ParseXML();
    run.result.machine.supported = IsMachineSupported();
    DescribeMachine(run);
    if (run.result.machine.supported) {
        TestControllers(run);
    } else {
        RecordUnsupportedMachine(run);
    }
    ExplainNotAsked(run.result);
}

void BMCI2C_Test_Impl::DescribeMachine(CurrentRun& run) {
    RunResult& result = run.result;
    MachineResult& facts = result.machine;
    facts.type = machineType;
    facts.biosId = biosId;
    facts.catalog = CatalogPath();
    if (familyTrouble) {
        result.troubles.push_back(run_trouble::FamilyUnknown(*familyTrouble));
    } else {
        facts.oxc = isOxcMachine;
    }
    if (catalogTrouble) {
        result.troubles.push_back(*catalogTrouble);
    }
    run.machine = SPLibrary::DescribeMachine();
    const SPMachine& described = run.machine;
    facts.simulated = described.simulated;
    for (const SPMachine::Controller& controller : described.controllers) {
        AddController(result, controller.address);
        if (!controller.present) {
            result.controllers.back().trouble = run_trouble::NotPresent();
        }
    }
    if (described.trouble && facts.supported) {
        result.troubles.push_back(*described.trouble);
    }
}

void BMCI2C_Test_Impl::RecordUnsupportedMachine(CurrentRun& run) {
    const std::string text = "166-899-001 BMCI2C Bus Test Aborted: The machine with MT [" +
                             machineType + "] is not supported by BMCI2C Bus Test.";
    WriteCoreLog(kLogError, text);
    run.record.SetResult(text, kCompletionCriticalError);
    run.record.Keep();
    run.result.messages.push_back({.line = text, .recommendations = {}});
    if (!catalogTrouble) {
        run.result.troubles.push_back(run_trouble::UnsupportedMachine(
            CatalogPath(), machineType, biosId, NQUVZDX20::TOSSpecific::SmbiosProblem()));
    }
}

void BMCI2C_Test_Impl::TestControllers(CurrentRun& run) {
    run.record->RecordData.clear();
    const int count = CountControllers(run.machine);
    WriteOutput(kLogTrace, "Total number of BMC(s) found = " + std::to_string(count));
    for (int node = 0; node < count; ++node) {
        if (run.IsStopped()) {
            run.result.verdict = Verdict::Interrupted;
            return;
        }
        if (TestController(node, run) == Next::EndOfRun) {
            return;
        }
    }
    if (run.record.IsClosed()) {
        return;
    }
    WriteOutput(kLogTrace, "Result " + run.record.Text());
    WriteLocation(LocationLine::RunEnd);
}

BMCI2C_Test_Impl::Next BMCI2C_Test_Impl::TestController(int node, CurrentRun& run) {
    const NQUVZDX20::LogNode linesAreAbout(node);
    ControllerResult& controller = ControllerOf(run.result, node);
    run.Tell([&](RunObserver& observer) {
        observer.OnController(node, static_cast<int>(run.result.controllers.size()),
                              controller.address);
    });
    IpmiExchange exchange(platform::kI2cBusStatus, kAnnouncedLength);
    const SPShare share{.begin = Clock::now(), .stop = run.options.stop};
    const bool delivered = AskBusStatus(exchange, share, run, controller);
    controller.elapsed = Since(share.begin);
    if (run.IsStopped() && (!delivered || IsBusy(exchange))) {
        run.result.verdict = Verdict::Interrupted;
        return Next::EndOfRun;
    }
    nodeCount = node + 1;
    run.record->ResponseLength = exchange.Response().Length();
    WriteCoreLog(kLogTrace, "isCmdComplete of sendIPMICommand() is : " + std::to_string(delivered) +
                                " fIsOXC: " + std::to_string(isOxcMachine));
    if (!delivered) {
        RecordSilence(exchange, run, controller);
        return Next::Controller;
    }
    if (!JudgeResponse(exchange, run, controller)) {
        return EndRecord(run, node);
    }
    const platform::IpmiResponse response = exchange.Response();
    WriteOutput(kLogTrace, "Received data from BMC:" + std::to_string(response.DataByte(0)) + " " +
                               std::to_string(response.DataByte(1)) + " " +
                               std::to_string(response.DataByte(2)));
    const std::string whyUnknown = DetectGeneration(share, run, controller);
    RecordBusses(ScanBusses(response, run, controller), run, controller);
    if (HasUnjudgedBus(controller)) {
        controller.trouble = run_trouble::GenerationUnknown(whyUnknown);
    }
    return Next::Controller;
}

// A busy controller is asked once more; the second answer counts, whatever it is.
bool BMCI2C_Test_Impl::AskBusStatus(IpmiExchange& exchange, const SPShare& share,
                                    const CurrentRun& run, ControllerResult& controller) {
    WriteCoreLog(kLogTrace, exchange.DumpRequest());
    const bool delivered =
        Send(ControllerOfNode(controller.node, run.machine), exchange, share, controller);
    if (!delivered || !IsBusy(exchange)) {
        return delivered;
    }
    run.Tell([&](RunObserver& observer) { observer.OnBusyPause(controller.node, kPause); });
    sleep(static_cast<unsigned int>(kPause.count()));
    if (run.IsStopped()) {
        return delivered;
    }
    std::unique_ptr<SPLibrary> library = ControllerOfNode(controller.node, run.machine);
    if (library == nullptr) {
        return delivered;
    }
    exchange = IpmiExchange(platform::kI2cBusStatus, kAnnouncedLength);
    return Send(std::move(library), exchange, share, controller);
}

bool BMCI2C_Test_Impl::Send(std::unique_ptr<SPLibrary> library, IpmiExchange& exchange,
                            const SPShare& share, ControllerResult& controller) {
    if (library != nullptr) {
        library->Use(share);
    }
    const bool delivered = exchange.SendTo(std::move(library));
    controller.attempts += exchange.Facts().attempts;
    return delivered;
}

void BMCI2C_Test_Impl::RecordSilence(const IpmiExchange& exchange, CurrentRun& run,
                                     ControllerResult& controller) {
    controller.outcome = Outcome::NotDelivered;
    controller.trouble = exchange.Facts().trouble.value_or(run_trouble::NotPresent());
    controller.message = BuildMessage(kNotCompletedMessage, kSendFailed);
    run.record.SetResult(run.record.Text() + TextOf(*controller.message), kCompletionCriticalError);
}

// Writes down what came. False when it cannot be used; the record then says why.
bool BMCI2C_Test_Impl::JudgeResponse(const IpmiExchange& exchange, CurrentRun& run,
                                     ControllerResult& controller) {
    const platform::IpmiResponse response = exchange.Response();
    const std::string dump = Dump(response);
    run.record->CommandSent = true;
    run.record->ResponseLog.append(dump);
    WriteCoreLog(kLogTrace, dump);
    controller.length = response.Length();
    if (response.IsTooShort()) {
        WriteCoreLog(kLogError, std::string(kIncorrectRespLength));
        controller.outcome = Outcome::UnusableAnswer;
        controller.trouble = run_trouble::TooShort(response.Length());
        controller.message = BuildMessage(kNotCompletedMessage, kBadResponseLength);
        return false;
    }
    run.record->ResponseReceived = true;
    const std::uint8_t code = response.CompletionCode();
    const std::span<const std::uint8_t> data = response.ControllerData();
    controller.completionCode = code;
    controller.data.assign(data.begin(), data.end());
    if (code != platform::kCompleted) {
        WriteCoreLog(kLogError, std::string(kIncorrectCompletion));
        run.record->ResponseLog.append(std::string(kIncorrectCompletion));
        controller.outcome = Outcome::Refused;
        controller.trouble = run_trouble::Refused(code);
        controller.message = CompletionCodeMessage(code);
        return false;
    }
    run.record->CompletionCodeOk = true;
    controller.outcome = Outcome::Examined;
    return true;
}

// A CIM client's run ends at an answer that cannot be used.
BMCI2C_Test_Impl::Next BMCI2C_Test_Impl::EndRecord(CurrentRun& run, int node) {
    const ControllerResult& controller = ControllerOf(run.result, node);
    run.record.SetResult(run.record.Text() + TextOf(*controller.message), kCompletionCriticalError);
    run.record.Keep();
    if (!run.result.endOfRecord) {
        run.result.endOfRecord = node;
    }
    if (!run.options.askAll) {
        return Next::EndOfRun;
    }
    run.record.Close();
    return Next::Controller;
}

// Why the generation of an OXC controller is not known; empty when it is.
std::string BMCI2C_Test_Impl::DetectGeneration(const SPShare& share, const CurrentRun& run,
                                               ControllerResult& controller) {
    if (!isOxcMachine) {
        return "";
    }
    std::string reason;
    controller.generation = AskGeneration(share, run.machine, reason);
    const bool isV2 = controller.generation == Generation::Second;
    WriteOutput(kLogTrace, isV2 ? "OXC V2 detected" : "OXC V1 detected");
    return reason;
}

// A pass makes good what an earlier controller's silence did to the state, but not a failed bus.
void BMCI2C_Test_Impl::RecordBusses(std::string failures, CurrentRun& run,
                                    ControllerResult& controller) {
    const bool passed = failures.empty();
    if (passed) {
        controller.message = BuildMessage(kPassMessage, kPassed);
        if (!run.busFailed) {
            run.record->CompletionState = kCompletionOk;
        }
    }
    if (!run.record->RecordData.empty()) {
        run.record->RecordData += '\n';
    }
    run.record->RecordData += passed ? TextOf(*controller.message) : failures;
    run.record.KeepAlone();
}
