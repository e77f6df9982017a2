#include <cli/Machine.h>
#include <platform/diagnostics/SmbiosText.h>
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
    const platform::SmbiosText type = platform::ReadMachineType(settings);
    const platform::SmbiosText biosId = platform::ReadBiosId(settings);
    Machine machine{.type = type.text, .biosId = biosId.text, .controllers = {}, .troubles = {}};
    for (const platform::SmbiosText& smbios : {type, biosId})
        if (!smbios.problem.empty()) machine.troubles.push_back(smbios.problem);
    for (const platform::ControllerSettings& controller : platform::NodeList(settings)) {
        const int node = static_cast<int>(machine.controllers.size());
        machine.controllers.push_back({WayTo(controller, node), controller});
    }
    if (machine.controllers.empty() && !settings.controllers.value)
        machine.troubles.push_back(platform::NoDeviceText());
    return machine;
}

bool IsSimulated(const platform::Settings& settings) {
    const auto& controllers = settings.controllers.value;
    return !settings.profileFile.value.empty() ||
           (controllers &&
            std::any_of(controllers->begin(), controllers->end(), IsSimulatedController));
}

}  // namespace cli
