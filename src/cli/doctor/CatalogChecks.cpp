#include <catalog/TBmcI2cXMLParser.h>
#include <cli/ScopedVariable.h>
#include <cli/Text.h>
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

// Keeps what the parser reports as errors.
class CatalogReader : public TBmcI2cXMLParser {
public:
    using TBmcI2cXMLParser::FatalError;

    void FatalError(const char* message) override {
        AddError(message == nullptr ? "" : message);
        TBmcI2cXMLParser::FatalError(message);
    }

    void AddError(const std::string& message) {
        if (errorCount++ == 0) firstError = "line " + std::to_string(GetCurLine()) + ": " + message;
    }

    std::size_t errorCount = 0;
    std::string firstError;
};

void Parse(CatalogReader& reader, std::string text) {
    try {
        reader.Parse(text.data(), text.size());
    } catch (const std::exception& error) {
        reader.AddError(error.what());
    }
}

std::string Sentence(const std::string& text) { return text.ends_with('.') ? text : text + "."; }

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

Check CheckReading(const std::string& path, const CatalogReader& reader, std::size_t entries) {
    constexpr const char* kFix = "Fix it; docs/catalog-guide.md explains how to write a catalog.";
    if (reader.errorCount != 0)
        return Bad(kReadingName,
                   "The catalog " + path + " has " + Counted(reader.errorCount, "error", "errors") +
                       ", the first in " + Sentence(reader.firstError),
                   kFix);
    if (entries == 0) return Bad(kReadingName, "The catalog " + path + " has no machine.", kFix);
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
        Parse(reader, platform::ReadFileText(path, std::numeric_limits<std::size_t>::max()));
    } catch (const std::system_error& error) {
        return {Bad(kReadingName,
                    "The catalog " + path +
                        " cannot be read: " + platform::ReasonText(error.code().value()) + ".",
                    "Name the folder that holds bmci2c/bmci2c.msg.xml with the key root under "
                    "[diagnostics], with BMCI2C_ROOT or with --root.")};
    }
    Checks checks = {CheckReading(path, reader, reader.GetMachineList().size())};
    if (machine) {
        const Check found = CheckMachine(MachineTypes(reader), *machine);
        const bool isUncertain = found.grade == Grade::Fail && reader.errorCount != 0;
        checks.push_back(isUncertain ? NotExamined(kMachineName,
                                                   "The catalog has errors, so it is not known "
                                                   "which machines it lists.",
                                                   kReadingName)
                                     : found);
    }
    return checks;
}

}  // namespace cli
