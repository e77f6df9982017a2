#include <platform/service_processor/Hexadecimal.h>
#include <platform/service_processor/InBandTransport.h>
#include <platform/service_processor/IpmiDevice.h>
#include <platform/service_processor/Seconds.h>

#include <algorithm>
#include <atomic>
#include <utility>

namespace platform {

namespace {

// Different for each command of this process, so that no late answer is taken for another's.
long NextMessageId() {
    static std::atomic<long> next = 1;
    return next++;
}

bool Answers(const IpmiDevice::Message& message, const IpmiRequest& request, long messageId) {
    constexpr std::uint8_t kAnswerBit = 0x01;
    return message.messageId == messageId && message.netFn == (request.netFn | kAnswerBit) &&
           message.command == request.command;
}

IpmiAnswer ReadAnswer(const IpmiDevice::Message& message) {
    if (message.data.empty()) {
        throw TransportError(TroubleCode::UnusableAnswers,
                             "The controller's answer is too short: it has no completion code.",
                             "");
    }
    IpmiAnswer answer;
    answer.completionCode = message.data.front();
    answer.data.assign(message.data.begin() + 1, message.data.end());
    return answer;
}

std::string Named(const IpmiDevice::Message& message, const IpmiRequest& request) {
    if (message.command == request.command) return "an earlier request";
    return "another command (network function " + Hexadecimal(message.netFn) + ", command " +
           Hexadecimal(message.command) + ")";
}

TransportError Silence(const std::string& device, std::chrono::milliseconds time,
                       const std::optional<std::string>& other) {
    const std::string subject = "The controller behind " + device;
    const std::string within = " within " + InSeconds(time) + ".";
    if (other) {
        return {TroubleCode::UnusableAnswers, subject + " answered nothing but " + *other + within,
                "Try again."};
    }
    return {TroubleCode::NoAnswer, subject + " did not answer" + within,
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

    std::optional<std::string> other;
    while (const auto message = driver.Receive(end, allowance.stop)) {
        if (!message->isAnswer) continue;
        if (Answers(*message, request, messageId)) return ReadAnswer(*message);
        other = Named(*message, request);
    }
    if (allowance.IsStopped()) throw Interrupted();
    throw Silence(device, allowance.limit, other);
}

}  // namespace platform
