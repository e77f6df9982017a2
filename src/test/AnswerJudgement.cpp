// How one controller's answer is judged and recorded.
#include <test/BMCI2C_Test_Impl.h>
#include <test/CoreLog.h>
#include <test/MessageNumbers.h>
#include <test/RunTroubles.h>

#include <utility>

using NQUVZDX20::kLogError;
using NQUVZDX20::kLogTrace;

namespace {

// A message without a text is useless: the catalog lacks an entry.
std::optional<ResultMessage> Told(ResultMessage message) {
    return message.line.empty() ? std::nullopt : std::optional(std::move(message));
}

std::string TextOf(const std::optional<ResultMessage>& message) {
    return message ? ::TextOf(*message) : "";
}

}  // namespace

BMCI2C_Test_Impl::Next BMCI2C_Test_Impl::JudgeNoResponse(const IpmiExchange& exchange,
                                                         CurrentRun& run,
                                                         ControllerResult& controller) {
    controller.outcome = Outcome::NotDelivered;
    if (run.IsStopped()) {
        run.Interrupt(controller);
    }
    controller.trouble = exchange.Facts().trouble.value_or(run_trouble::NotPresent());
    controller.message = Told(BuildMessage(kNotCompletedMessage, kSendFailed));
    run.record.SetResult(run.record.Text() + TextOf(controller.message), kCompletionCriticalError);
    return run.result.interrupted ? Next::EndOfRun : Next::Controller;
}

// Records the answer and judges it.
BMCI2C_Test_Impl::Next BMCI2C_Test_Impl::JudgeResponse(const platform::IpmiResponse& response,
                                                       CurrentRun& run,
                                                       ControllerResult& controller) {
    const std::string dump = Dump(response);
    run.record->CommandSent = true;
    run.record->ResponseLog.append(dump);
    WriteCoreLog(kLogTrace, dump);
    controller.length = response.Length();
    if (response.IsTooShort()) {
        WriteCoreLog(kLogError, std::string(kIncorrectRespLength));
        controller.outcome = Outcome::UnusableAnswer;
        controller.trouble = run_trouble::TooShort(response.Length());
        controller.message = Told(BuildMessage(kNotCompletedMessage, kBadResponseLength));
        return EndRecord(run, controller);
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
        controller.message = Told(CompletionCodeMessage(code));
        return EndRecord(run, controller);
    }
    run.record->CompletionCodeOk = true;
    controller.outcome = Outcome::Examined;
    return JudgeBusses(response, run, controller);
}

// A CIM client's run ends at an answer that cannot be used.
BMCI2C_Test_Impl::Next BMCI2C_Test_Impl::EndRecord(CurrentRun& run,
                                                   const ControllerResult& controller) {
    run.record.SetResult(run.record.Text() + TextOf(controller.message), kCompletionCriticalError);
    run.record.Keep();
    if (!run.result.endOfRecord) {
        run.result.endOfRecord = controller.node;
    }
    if (!run.options.askAll) {
        return Next::EndOfRun;
    }
    run.record.Close();
    return Next::Controller;
}

BMCI2C_Test_Impl::Next BMCI2C_Test_Impl::JudgeBusses(const platform::IpmiResponse& response,
                                                     CurrentRun& run,
                                                     ControllerResult& controller) {
    WriteOutput(kLogTrace, "Received data from BMC:" + std::to_string(response.DataByte(0)) + " " +
                               std::to_string(response.DataByte(1)) + " " +
                               std::to_string(response.DataByte(2)));
    const GenerationAnswer oxc = DetectGeneration(run);
    controller.generation = oxc.generation;
    if (oxc.generation == Generation::Unknown && run.IsStopped()) {
        run.Interrupt(controller);
        return Next::EndOfRun;
    }
    RecordBusses(ScanBusses(response, controller), run, controller);
    if (DependsOnGeneration(controller)) {
        controller.trouble = run_trouble::GenerationUnknown(oxc.reason);
    } else if (response.IsCut()) {
        controller.trouble = run_trouble::AnswerCut(response.Length());
    }
    return Next::Controller;
}

// A pass overrides the state that an earlier timeout left, but not a failed bus.
void BMCI2C_Test_Impl::RecordBusses(const std::string& failures, CurrentRun& run,
                                    ControllerResult& controller) {
    std::string text = failures;
    std::int32_t state = run.record->CompletionState;
    if (!controller.failedBusses.empty()) {
        run.busFailed = true;
        state = kCompletionMajorError;
    }
    if (failures.empty()) {
        const ResultMessage pass = BuildMessage(kPassMessage, kPassed);
        text = TextOf(pass);
        state = run.busFailed ? state : kCompletionOk;
        if (controller.failedBusses.empty()) {
            controller.message = Told(pass);
        }
    }
    const std::string before = run.record.Text();
    run.record.SetResult(before.empty() ? text : before + '\n' + text, state);
    run.record.KeepAlone();
}
