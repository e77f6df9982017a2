#include <cli/Machine.h>
#include <platform/diagnostics/SmbiosText.h>
#include <platform/service_processor/Nodes.h>

namespace cli {

namespace {

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

}  // namespace cli
