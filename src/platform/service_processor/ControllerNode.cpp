#include <platform/diagnostics/LogNode.h>
#include <platform/service_processor/ControllerNode.h>
#include <platform/service_processor/IpmiBuffer.h>
#include <platform/service_processor/LiveObjects.h>

#include <algorithm>
#include <exception>
#include <new>
#include <span>
#include <utility>

namespace platform {

namespace {

constexpr int kNothingSent = 0;

TransportError NoTimeLeft() {
    return {TroubleCode::NoAnswer,
            "The command was not sent: the commands before it have used up the controller's time.",
            "Find out why it is slow, or raise its time_limit.", kNothingSent};
}

}  // namespace

ControllerNode::ControllerNode(NodeFacts nodeFacts, std::unique_ptr<Transport> wayToController)
    : facts(std::move(nodeFacts)), transport(std::move(wayToController)) {
    LiveObjects::Add(this);
}

ControllerNode::~ControllerNode() { LiveObjects::Remove(this); }

bool ControllerNode::IsOxcControllerMachine() {
    OxcAnswer answer = facts.askFamily();
    familyTrouble = std::move(answer.trouble);
    return answer.isOxc;
}

// Every command is synchronous.
bool ControllerNode::sendIPMICommand(unsigned char* buffer, int* length, int bufferSize, bool) {
    const std::span<unsigned char> room(buffer, static_cast<std::size_t>(std::max(bufferSize, 0)));
    return Deliver([&] { return ReadRequest(room); },
                   [&](const IpmiAnswer& answer) { *length = WriteAnswer(answer, room); });
}

std::optional<DeviceId> ControllerNode::Identify() {
    std::optional<DeviceId> id;
    Deliver([] { return kDeviceIdRequest; },
            [&](const IpmiAnswer& answer) { id = ReadDeviceId(answer); });
    return id;
}

// True when the answer could be used.
bool ControllerNode::Deliver(const MakeRequest& makeRequest, const UseAnswer& useAnswer) {
    const NQUVZDX20::LogNode logged(facts.node);
    const Time start = Now();
    ExchangeFacts exchange{
        .node = facts.node, .way = transport->Describe(), .request = {}, .elapsed = {}};
    const auto stopClock = [&] {
        exchange.elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(Now() - start);
    };
    try {
        exchange.request = makeRequest();
        const IpmiAnswer answer = Exchange(exchange.request);
        stopClock();
        lastExchange = {.attempts = answer.attempts, .trouble = std::nullopt};
        useAnswer(answer);
        LogAnswer(exchange, answer);
        return true;
    } catch (const TransportError& error) {
        stopClock();
        Report(exchange, error);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        stopClock();
        Report(exchange, CannotBeSent(error));
    }
    return false;
}

void ControllerNode::Report(const ExchangeFacts& exchange, const TransportError& error) {
    lastExchange = {.attempts = error.Attempts(), .trouble = error.AsTrouble()};
    LogTrouble(exchange, error);
}

IpmiAnswer ControllerNode::Exchange(const IpmiRequest& request) {
    TimeAllowance allowance = ShareFrom(share ? share->begin : Now(), facts.timeLimit);
    if (share) allowance.stop = share->stop;
    if (allowance.IsStopped()) throw Interrupted(kNothingSent);
    if (Now() >= allowance.end) throw NoTimeLeft();
    return transport->Send(request, allowance);
}

}  // namespace platform
