#include <platform/service_processor/InWords.h>
#include <platform/service_processor/UnusableAnswers.h>
#include <platform/service_processor/inband/InBandTransport.h>
#include <platform/service_processor/inband/IpmiDevice.h>

#include <algorithm>
#include <atomic>
#include <utility>

namespace platform {

namespace {

// Unique for each command of this process, so that no late answer is mistaken for another's.
long NextMessageId() {
    static std::atomic<long> next = 1;
    return next++;
}

// Nothing when the message answers the request.
std::optional<Flaw> FlawOf(const IpmiDevice::Message& message, const IpmiRequest& request,
                           long messageId) {
    constexpr std::uint8_t kAnswerBit = 0x01;
    if (message.messageId != messageId) return Flaw::Sequence;
    if (!message.isFromController) return Flaw::Responder;
    if (message.netFn != (request.netFn | kAnswerBit)) return Flaw::NetworkFunction;
    if (message.command != request.command) return Flaw::Command;
    return std::nullopt;
}

IpmiAnswer ReadAnswer(const IpmiDevice::Message& message) {
    if (message.data.empty()) {
        throw TransportError(TroubleCode::UnusableAnswers,
                             "The controller's answer is too short: it has no completion code.",
                             kRetryAdvice);
    }
    IpmiAnswer answer;
    answer.completionCode = message.data.front();
    answer.data.assign(message.data.begin() + 1, message.data.end());
    return answer;
}

TransportError NoResponse(const std::string& device, std::chrono::milliseconds time,
                          const UnusableAnswers& unusable) {
    const std::string subject = "The controller behind " + device;
    const std::string within = " within " + InSeconds(time);
    if (!unusable.IsEmpty()) {
        return {TroubleCode::UnusableAnswers,
                subject + " sent nothing usable" + within + ", but " + unusable.InWords() + ".",
                kRetryAdvice};
    }
    return {TroubleCode::NoAnswer, subject + " did not answer" + within + ".",
            "If it is slow, raise its time_limit."};
}

}  // namespace

InBandTransport::InBandTransport(std::string devicePath, DevicePresence devicePresence)
    : device(std::move(devicePath)), presence(devicePresence) {}

IpmiAnswer InBandTransport::Send(const IpmiRequest& request, TimeAllowance allowance) {
    const Time end = Now() + allowance.limit;
    const long messageId = NextMessageId();
    IpmiDevice driver(device, presence);
    driver.Send(request, messageId);

    UnusableAnswers unusable;
    while (const auto message = driver.Receive(end, allowance.stop)) {
        if (!message->isAnswer) continue;
        const std::optional<Flaw> flaw = FlawOf(*message, request, messageId);
        if (!flaw) return ReadAnswer(*message);
        unusable.Add(*flaw);
    }
    if (allowance.IsStopped()) throw Interrupted();
    throw NoResponse(device, allowance.limit, unusable);
}

}  // namespace platform
