#include <base/NoDestructor.h>
#include <platform/service_processor/simulated/SimulatedTransport.h>

#include <utility>

namespace platform {

namespace {

bool Is(const IpmiRequest& request, std::uint8_t netFn, std::uint8_t command) {
    return request.netFn == netFn && request.command == command;
}

IpmiAnswer Generation(int generation) {
    const auto secondByte = static_cast<std::uint8_t>(generation == 2 ? 0x01 : 0x00);
    return {.completionCode = kCompleted, .data = {0x00, secondByte}};
}

IpmiAnswer DeviceIdAnswer() {
    return {.completionCode = kCompleted,
            .data = {0x20,              // device ID
                     0x01,              // device revision
                     0x01, 0x00,        // firmware 1.0
                     0x02,              // IPMI 2.0
                     0x00,              // no additional device support
                     0x00, 0x00, 0x00,  // manufacturer: not named
                     0x00, 0x00}};      // product
}

}  // namespace

int RequestCounts::Next(int node) {
    const std::lock_guard guard(lock);
    return counts[node]++;
}

RequestCounts& ProcessRequestCounts() {
    static base::NoDestructor<RequestCounts> counts;
    return *counts;
}

SimulatedTransport::SimulatedTransport(std::shared_ptr<const SimulatedNode> simulatedNode,
                                       int controllerGeneration, int nodeNumber,
                                       RequestCounts& counts)
    : node(std::move(simulatedNode)),
      generation(controllerGeneration),
      number(nodeNumber),
      requestCounts(counts) {}

IpmiAnswer SimulatedTransport::Send(const IpmiRequest& request, TimeAllowance) {
    if (!IsAnswered(request)) {
        throw TransportError(TroubleCode::NoAnswer, "The simulated controller does not answer.",
                             "");
    }
    IpmiAnswer answer = requestCounts.Next(number) < node->busy
                            ? IpmiAnswer{.completionCode = kControllerBusy}
                            : Answer(request);
    if (Is(request, kOemNetFn, kI2cBusStatus)) answer.length = node->length;
    return answer;
}

bool SimulatedTransport::IsAnswered(const IpmiRequest& request) const {
    if (Is(request, kOemNetFn, kControllerGeneration) && !node->answersGeneration) return false;
    if (Is(request, kAppNetFn, kGetDeviceId) && !node->answersDeviceId) return false;
    return node->answers;
}

IpmiAnswer SimulatedTransport::Answer(const IpmiRequest& request) const {
    if (Is(request, kOemNetFn, kI2cBusStatus)) {
        return {.completionCode = node->completionCode, .data = node->data};
    }
    if (Is(request, kOemNetFn, kControllerGeneration)) {
        if (const std::uint8_t code = node->generationCompletionCode; code != kCompleted)
            return {.completionCode = code};
        return Generation(generation);
    }
    if (Is(request, kAppNetFn, kGetDeviceId)) return DeviceIdAnswer();
    return {.completionCode = kInvalidCommand};
}

}  // namespace platform
