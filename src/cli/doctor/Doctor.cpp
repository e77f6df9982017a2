#include <cli/Installation.h>
#include <cli/doctor/CatalogChecks.h>
#include <cli/doctor/ControllerChecks.h>
#include <cli/doctor/Doctor.h>
#include <cli/doctor/MachineChecks.h>
#include <cli/doctor/ModuleChecks.h>
#include <cli/doctor/ProviderChecks.h>
#include <cli/doctor/SettingsChecks.h>
#include <platform/diagnostics/SmbiosText.h>
#include <platform/settings/DefaultPaths.h>

#include <iterator>
#include <optional>
#include <utility>

namespace cli {

namespace {

void Append(Checks& all, Checks more) {
    all.insert(all.end(), std::make_move_iterator(more.begin()),
               std::make_move_iterator(more.end()));
}

CatalogMachine MachineOf(const platform::Settings& settings) {
    return {.type = platform::ReadMachineType(settings).text,
            .biosId = platform::ReadBiosId(settings).text,
            .oxc = settings.oxc.value};
}

// Where no setting names the root, two installations may each have a catalog.
Checks CheckRoot(const platform::Settings& settings) {
    const std::vector<std::string> roots = platform::DefaultRoots();
    if (settings.root.origin != platform::Origin::Default || roots.size() < 2) return {};
    return {Good("diagnostics root", "The catalog below " + roots.front() +
                                         ", beside the module, goes before that below " +
                                         roots.back() + ", the configured folder.")};
}

}  // namespace

Checks Examine(const Session& session) {
    const platform::Settings& settings = session.settings;
    const bool areKnown = settings.problem.empty();
    const std::string catalog = CatalogBelow(settings.root.value);
    Checks checks = CheckSettings(settings);
    Append(checks, CheckModule(session.files));
    Append(checks, CheckProviders(session.files));
    if (areKnown) {
        Append(checks, CheckSmbios(settings));
        Append(checks, CheckRoot(settings));
        Append(checks, CheckCatalog(catalog, MachineOf(settings)));
        Append(checks, CheckControllers(settings));
    } else {
        for (const char* const name :
             {"machine type", "BIOS identifier", "catalog", "machine in the catalog", "devices"})
            checks.push_back(NotExamined(
                name, "This depends on the settings, which cannot be read.", "settings"));
    }
    return checks;
}

}  // namespace cli
