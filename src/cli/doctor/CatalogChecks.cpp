#include <cli/ScopedVariable.h>
#include <cli/ShellWord.h>
#include <cli/Text.h>
#include <cli/catalog/CatalogReader.h>
#include <cli/doctor/CatalogChecks.h>
#include <platform/settings/FileText.h>
#include <test/MachineTypes.h>

#include <algorithm>
#include <limits>
#include <set>
#include <system_error>
#include <variant>

namespace cli {

namespace {

constexpr const char* kReadingName = "catalog";
constexpr const char* kMachineName = "machine in the catalog";

std::set<std::string> MachineTypes(const CatalogReader& reader) {
    std::set<std::string> types;
    for (const auto& entry : reader.GetMachineList())
        for (const std::string& type : entry->GetMachineTypes()) types.insert(type);
    return types;
}

// Of a family by products, every controller decides for itself.
std::vector<std::string_view> GenericEntries(const platform::OxcFamily& oxc) {
    const bool* const all = std::get_if<bool>(&oxc);
    if (all == nullptr) return {GEN_MACHINE_TYPE, GEN_MACHINE_TYPE_OXC};
    return {*all ? GEN_MACHINE_TYPE_OXC : GEN_MACHINE_TYPE};
}

Check CheckReading(const std::string& path, const CatalogReports& errors, std::size_t entries) {
    if (!errors.empty())
        return Bad(kReadingName,
                   "The catalog " + path + " has " + Counted(errors.size(), "error", "errors") +
                       ", the first in line " + std::to_string(errors.front().place.line) + ": " +
                       errors.front().text,
                   "See 'bmci2c catalog check " + ShellWord(path) + "' for all.");
    if (entries == 0)
        return Bad(kReadingName, "The catalog " + path + " has no machine.",
                   "Fix it; docs/catalog-guide.md explains how to write a catalog.");
    return Good(kReadingName,
                "The catalog " + path + " has " + Counted(entries, "entry", "entries") + ".");
}

Check CheckMachine(const std::set<std::string>& types, const CatalogMachine& machine) {
    for (const std::string_view entry : GenericEntries(machine.oxc))
        if (const std::string generic(entry); !types.contains(generic))
            return Bad(kMachineName,
                       "The catalog has no entry " + generic +
                           ", which holds the texts of machines "
                           "without texts of their own.",
                       "Add <machine type=\"" + generic + "\"> to the catalog.");
    for (const auto& [noun, text] :
         {std::pair("machine type", machine.type), std::pair("BIOS identifier", machine.biosId)})
        if (types.contains(text))
            return Good(kMachineName,
                        std::string("The catalog knows the ") + noun + " \"" + text + "\".");
    if (machine.type.empty() && machine.biosId.empty())
        return Bad(kMachineName,
                   "Neither machine type nor BIOS identifier is known, so no entry of the catalog "
                   "is this machine's.",
                   "Fix those two checks first.");
    return Bad(
        kMachineName,
        "The catalog knows neither the machine type \"" + machine.type +
            "\" nor the BIOS identifier \"" + machine.biosId + "\".",
        "Add one of them to the catalog, or set the key type under [machine] in the settings "
        "file to what the catalog calls this machine.");
}

}  // namespace

Checks CheckCatalog(const std::string& path, const std::optional<CatalogMachine>& machine) {
    const ScopedVariable silence = SilentLog();  // before the parser looks at the settings
    CatalogReader reader;
    try {
        reader.Read(platform::ReadFileText(path, std::numeric_limits<std::size_t>::max()));
    } catch (const std::system_error& error) {
        return {Bad(kReadingName,
                    "The catalog " + path +
                        " cannot be read: " + platform::ReasonText(error.code().value()) + ".",
                    "Name the folder that holds bmci2c/bmci2c.msg.xml with the key root under "
                    "[diagnostics], with BMCI2C_ROOT or with --root.")};
    }
    Checks checks = {CheckReading(path, reader.Errors(), reader.GetMachineList().size())};
    if (machine) {
        const Check found = CheckMachine(MachineTypes(reader), *machine);
        const bool isUncertain = found.grade == Grade::Fail && !reader.Errors().empty();
        checks.push_back(isUncertain ? NotExamined(kMachineName,
                                                   "The catalog has errors, so it is not known "
                                                   "which machines it lists.",
                                                   kReadingName)
                                     : found);
    }
    return checks;
}

}  // namespace cli
