#include <platform/service_processor/ControllerProbe.h>
#include <platform/service_processor/Nodes.h>

#include <exception>
#include <new>

namespace platform {

namespace {

DeviceId AskDeviceId(const ControllerSettings& controller, int node,
                     std::chrono::milliseconds limit) {
    if (IsAbsent(controller)) {
        throw TransportError(TroubleCode::NotPresent,
                             "The profile says that this controller is not present.", "");
    }
    return ReadDeviceId(
        MakeTransport(controller, node)->Send(kDeviceIdRequest, ShareFrom(Now(), limit)));
}

}  // namespace

std::vector<ProbedNode> NodesToProbe(const Settings& settings, const std::string& deviceFolder) {
    std::vector<ProbedNode> nodes;
    for (const ControllerSettings& controller : NodeList(settings, deviceFolder)) {
        const int number = static_cast<int>(nodes.size());
        nodes.push_back({.number = number,
                         .way = MakeTransport(controller, number)->Describe(),
                         .controller = controller,
                         .limit = TimeLimit(settings, controller)});
    }
    return nodes;
}

ProbeResult ProbeController(const ControllerSettings& controller, int node,
                            std::chrono::milliseconds limit) {
    ProbeResult result;
    try {
        result.id = AskDeviceId(controller, node, limit);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const TransportError& error) {
        result.trouble = error.AsTrouble();
    } catch (const std::exception& error) {
        result.trouble = CannotBeSent(error).AsTrouble();
    }
    return result;
}

}  // namespace platform
