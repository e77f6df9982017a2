#include <platform/diagnostics/LogNode.h>
#include <platform/diagnostics/TOSSpecific.h>
#include <platform/service_processor/TimeAllowance.h>
#include <test/BMCI2C_Test_Impl.h>
#include <test/CoreLog.h>
#include <test/RunJudgement.h>
#include <test/RunLog.h>
#include <test/RunTroubles.h>
#include <unistd.h>

#include <exception>
#include <utility>

using NQUVZDX20::kLogError;
using NQUVZDX20::kLogTrace;

namespace {

constexpr int kAnnouncedLength = 250;
constexpr auto kPause = std::chrono::duration_cast<std::chrono::seconds>(platform::kBusyPause);

std::chrono::milliseconds Since(platform::Time begin) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(platform::Now() - begin);
}

int CountControllers(const SPMachine& described) {
    const std::unique_ptr<SPLibrary> controller = ControllerOfNode(0, described);
    return controller ? controller->GetNumberBMCNode() : 0;
}

bool IsBusy(const IpmiExchange& exchange) {
    return exchange.Response().CompletionCode() == platform::kControllerBusy;
}

}  // namespace

// The object is not freed: the service-processor library keeps those that it made reachable.
BMCI2C_Test_Impl::Family BMCI2C_Test_Impl::FamilyOfNode0() {
    SPLibrary* const controller = SPLibrary::GetSplibraryInstance(0);
    if (controller == nullptr) {
        const auto trouble = SPLibrary::DescribeMachine().trouble;
        return {.isOxc = false, .trouble = trouble.value_or(run_trouble::NotPresent())};
    }
    const bool isOxc = controller->IsOxcControllerMachine();
    return {.isOxc = isOxc, .trouble = controller->FamilyTrouble()};
}

BMCI2C_Test_Impl::BMCI2C_Test_Impl() = default;

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
    const platform::Time begin = platform::Now();
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
    if (auto failure = ReadMachineType(); failure && !failure->line.empty()) {
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
    if (!family.trouble) {
        facts.oxc = isOxcMachine;
    }
    if (catalogTrouble) {
        result.troubles.push_back(*catalogTrouble);
    }
    run.described = SPLibrary::DescribeMachine();
    const SPMachine& described = run.described;
    facts.simulated = described.simulated;
    for (const SPMachine::Controller& controller : described.controllers) {
        AddController(result, controller.address);
        if (!controller.present) {
            result.controllers.back().trouble = run_trouble::NotPresent();
        }
    }
    if (!facts.supported) {
        return;
    }
    if (genericMachine == nullptr) {
        result.troubles.push_back(
            run_trouble::CatalogLacksGenericEntry(facts.catalog, std::string(GenericType())));
    }
    if (described.trouble) {
        result.troubles.push_back(*described.trouble);
    } else if (family.trouble) {
        result.troubles.push_back(run_trouble::FamilyUnknown(*family.trouble));
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
    const int count = CountControllers(run.described);
    WriteOutput(kLogTrace, "Total number of BMC(s) found = " + std::to_string(count));
    for (int node = 0; node < count; ++node) {
        if (run.IsStopped()) {
            run.result.interrupted = true;
            return;
        }
        const NQUVZDX20::LogNode linesAreAbout(node);
        ControllerResult& controller = run.result.controllers.at(static_cast<std::size_t>(node));
        run.Notify(
            [&](RunObserver& observer) { observer.OnController(node, count, controller.address); });
        if (TestController(run, controller) == Next::EndOfRun) {
            return;
        }
    }
    if (run.record.IsClosed()) {
        return;
    }
    WriteOutput(kLogTrace, "Result " + run.record.Text());
    WriteLocation(LocationLine::RunEnd);
}

BMCI2C_Test_Impl::Next BMCI2C_Test_Impl::TestController(CurrentRun& run,
                                                        ControllerResult& controller) {
    IpmiExchange exchange(platform::kI2cBusStatus, kAnnouncedLength);
    const Answer answer = AskBusStatus(exchange, run, controller);
    if (answer == Answer::StoppedInPause) {
        controller.outcome = Outcome::Refused;
        controller.length = exchange.Response().Length();
        controller.completionCode = exchange.Response().CompletionCode();
        run.Interrupt(controller);
        return Next::EndOfRun;
    }
    const bool delivered = answer == Answer::Delivered;
    nodeCount = controller.node + 1;
    run.record->ResponseLength = exchange.Response().Length();
    WriteCoreLog(kLogTrace, "isCmdComplete of sendIPMICommand() is : " + std::to_string(delivered) +
                                " fIsOXC: " + std::to_string(isOxcMachine));
    return delivered ? JudgeResponse(exchange.Response(), run, controller)
                     : JudgeNoResponse(exchange, run, controller);
}

// One retry if the controller is busy; the second answer counts, whatever it is.
BMCI2C_Test_Impl::Answer BMCI2C_Test_Impl::AskBusStatus(IpmiExchange& exchange,
                                                        const CurrentRun& run,
                                                        ControllerResult& controller) {
    const SPShare share{.begin = platform::Now(), .stop = run.options.stop};
    const auto send = [&](std::unique_ptr<SPLibrary> library) {
        const bool delivered = exchange.SendTo(std::move(library), share);
        controller.attempts += exchange.Facts().attempts;
        controller.elapsed = Since(share.begin);
        return delivered ? Answer::Delivered : Answer::NotDelivered;
    };
    WriteCoreLog(kLogTrace, exchange.DumpRequest());
    const Answer first = send(ControllerOfNode(controller.node, run.described));
    if (first != Answer::Delivered || !IsBusy(exchange)) {
        return first;
    }
    run.Notify([&](RunObserver& observer) { observer.OnBusyPause(controller.node, kPause); });
    unsigned int left = static_cast<unsigned int>(kPause.count());
    while (left > 0 && !run.IsStopped()) {
        left = sleep(left);
    }
    if (run.IsStopped()) {
        return Answer::StoppedInPause;
    }
    std::unique_ptr<SPLibrary> library = ControllerOfNode(controller.node, run.described);
    if (library == nullptr) {
        return first;
    }
    exchange = IpmiExchange(platform::kI2cBusStatus, kAnnouncedLength);
    return send(std::move(library));
}

void BMCI2C_Test_Impl::CurrentRun::Interrupt(ControllerResult& controller) {
    controller.trouble = run_trouble::Interrupted();
    result.interrupted = true;
}
