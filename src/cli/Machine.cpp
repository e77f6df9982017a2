#include <cli/Machine.h>
#include <cli/ScopedVariable.h>
#include <platform/diagnostics/TOSSpecific.h>
#include <platform/service_processor/NodeList.h>
#include <platform/service_processor/TransportFactory.h>

#include <algorithm>

namespace cli {

namespace {

bool IsSimulatedController(const platform::ControllerSettings& controller) {
    return controller.transport == platform::TransportKind::Simulated;
}

std::string WayTo(const platform::ControllerSettings& controller, int node) {
    const std::string way = platform::MakeTransport(controller, node)->Describe();
    return platform::IsAbsent(controller) ? way + ", not present" : way;
}

}  // namespace

Machine ReadMachine(const platform::Settings& settings) {
    const ScopedVariable silence = SilentLog();
    Machine machine{.type = NQUVZDX20::TOSSpecific::GetMachineTypeFromID(),
                    .biosId = NQUVZDX20::TOSSpecific::GetBiosID(),
                    .controllers = {}};
    for (const platform::ControllerSettings& controller : platform::NodeList(settings)) {
        const int node = static_cast<int>(machine.controllers.size());
        machine.controllers.push_back({WayTo(controller, node), controller});
    }
    return machine;
}

bool IsSimulated(const platform::Settings& settings) {
    const auto& controllers = settings.controllers.value;
    return !settings.profileFile.value.empty() ||
           (controllers &&
            std::any_of(controllers->begin(), controllers->end(), IsSimulatedController));
}

}  // namespace cli
