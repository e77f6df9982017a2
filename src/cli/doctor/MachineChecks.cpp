#include <cli/doctor/MachineChecks.h>
#include <platform/diagnostics/SmbiosText.h>

#include <optional>
#include <string>

namespace cli {

namespace {

using platform::Setting;
using platform::SmbiosSource;
using platform::SmbiosText;

constexpr const char* kUnsetBiosId = "00";

struct Text {
    std::string name;
    std::string key;    // under [machine], instead of the SMBIOS text
    std::string unset;  // what firmware writes where nothing was set
    const Setting<std::optional<std::string>>& fixed;
    const SmbiosSource& source;
};

std::string PlaceOf(const Text& text) {
    return text.fixed.value ? text.fixed.place
                            : text.source.folder.value + "/" + text.source.file.value;
}

Check CheckText(const Text& text, const SmbiosText& read) {
    const std::string advice = "Set the key " + text.key + " under [machine] in the settings file.";
    if (!read.problem.empty()) return BadFrom(text.name, read.problem, advice);
    const std::string said = "The " + text.name + " is ";
    const std::string place = ", says " + PlaceOf(text) + ".";
    if (read.text.empty()) return Bad(text.name, said + "empty" + place, advice);
    if (read.text == text.unset)
        return Bad(text.name, said + '"' + read.text + "\", which stands for none" + place, advice);
    return Good(text.name, said + '"' + read.text + '"' + place);
}

}  // namespace

Checks CheckSmbios(const platform::Settings& settings) {
    const SmbiosText type = platform::ReadMachineType(settings);
    const SmbiosText biosId = platform::ReadBiosId(settings);
    const Check typeCheck = CheckText(
        {"machine type", "type", "", settings.machineType, settings.machineTypeSource}, type);
    Check biosCheck = CheckText(
        {"BIOS identifier", "bios_id", kUnsetBiosId, settings.biosId, settings.biosIdSource},
        biosId);
    // The catalog finds the machine by its type alone, too.
    const bool isMissing = biosId.text.empty() || biosId.text == kUnsetBiosId;
    if (isMissing && !type.text.empty()) biosCheck.grade = Grade::Warn;
    return {typeCheck, biosCheck};
}

}  // namespace cli
