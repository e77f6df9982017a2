#include <platform/service_processor/ControllerNode.h>
#include <platform/service_processor/ExchangeLog.h>
#include <platform/service_processor/IpmiBuffer.h>
#include <platform/service_processor/LiveObjects.h>

#include <algorithm>
#include <exception>
#include <new>
#include <span>
#include <utility>

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;

}  // namespace

ControllerNode::ControllerNode(NodeFacts nodeFacts, std::unique_ptr<Transport> wayToController)
    : facts(nodeFacts), transport(std::move(wayToController)) {
    LiveObjects::Add(this);
}

ControllerNode::~ControllerNode() { LiveObjects::Remove(this); }

// Every command is waited for: nobody asks for an answer later.
bool ControllerNode::sendIPMICommand(unsigned char* buffer, int* length, int bufferSize, bool) {
    const auto start = Clock::now();
    ExchangeFacts exchange{
        .node = facts.node, .way = transport->Describe(), .request = {}, .elapsed = {}};
    const auto stop = [&] {
        exchange.elapsed =
            std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    };
    try {
        const std::span<unsigned char> room(buffer,
                                            static_cast<std::size_t>(std::max(bufferSize, 0)));
        exchange.request = ReadRequest(room);
        const IpmiAnswer answer = transport->Send(exchange.request, facts.timeLimit);
        stop();
        LogAnswer(exchange, answer);
        *length = WriteAnswer(answer, room);
        return true;
    } catch (const TransportError& error) {
        stop();
        LogTrouble(exchange, error);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        stop();
        LogTrouble(exchange, TransportError(Trouble::Other, "The request could not be sent: " +
                                                                std::string(error.what()) + "."));
    }
    return false;
}

}  // namespace platform
