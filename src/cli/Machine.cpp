#include <cli/Machine.h>
#include <platform/diagnostics/TOSSpecific.h>
#include <platform/service_processor/NodeList.h>
#include <platform/service_processor/TransportFactory.h>
#include <platform/settings/Environment.h>

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace cli {

namespace {

// Keeps this program's own core logger, which takes its settings at its first line, from the sinks
// that the module is to write to.
class SilentLog {
public:
    SilentLog() : before(platform::EnvironmentText(kVariable)) { ::setenv(kVariable, "none", 1); }
    ~SilentLog() {
        if (before) {
            ::setenv(kVariable, before->c_str(), 1);
        } else {
            ::unsetenv(kVariable);
        }
    }
    SilentLog(const SilentLog&) = delete;
    SilentLog& operator=(const SilentLog&) = delete;

private:
    static constexpr const char* kVariable = "BMCI2C_LOG";
    const std::optional<std::string> before;
};

bool IsSimulatedController(const platform::ControllerSettings& controller) {
    return controller.transport == platform::TransportKind::Simulated;
}

}  // namespace

Machine ReadMachine(const platform::Settings& settings) {
    const SilentLog silence;
    Machine machine{.type = NQUVZDX20::TOSSpecific::GetMachineTypeFromID(),
                    .biosId = NQUVZDX20::TOSSpecific::GetBiosID(),
                    .controllers = {}};
    for (const platform::ControllerSettings& controller : platform::NodeList(settings)) {
        const int node = static_cast<int>(machine.controllers.size());
        machine.controllers.push_back(
            {platform::MakeTransport(controller, node)->Describe(), controller});
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
